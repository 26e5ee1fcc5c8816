#pragma once

#include <QByteArray>
#include <QList>

/// Names that a file can have, each of which has misled some program.
inline const QList<QByteArray> hostileFileNames = {
    "<b>bold & <img src=x>",
    "a&b",
    "%1 %s",
    "-rf",
    "a..b",
    "line\nfeed\ttab\rreturn",
    " blank ",
    "back\\slash",
    "rtl\xe2\x80\xaetxt.exe",
    "bell\x07\x1b[2J",
    "M\xfcller",
    "\xff\xfe",
    "cut\xe2\x82",
    QByteArray(255, 'x'),
};
