#pragma once

#include <QByteArray>
#include <QString>
#include <ostream>

/// Readable texts in the failure messages of the tests.

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << qUtf8Printable(text) << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << '"' << bytes.toPercentEncoding(" !#$&'()*+,-./:;<=>?@[]^_`{|}~").constData() << '"';
}
