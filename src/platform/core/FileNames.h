#pragma once

#include <QByteArray>
#include <QString>

/// File names as texts. The system's names are bytes, mostly UTF-8, but any bytes are possible: a byte that
/// is no part of UTF-8 becomes the lone surrogate U+DC00 plus the byte, so that the text can always be
/// converted back to the name. Such a text is kept and compared as any other; it is shown through ShownText.
namespace FileNames {

QString fromBytes(QByteArrayView name);
QByteArray toBytes(const QString &name);

} // namespace FileNames
