#include "FileSizeText.h"

#include "Numbers.h"

QString FileSizeText::of(qint64 length)
{
    constexpr int decimals = 4;
    const QString size = QString::number(length);
    if (size < QLatin1String("1024"))
        return size + QStringLiteral("Bytes");
    return Numbers::doubleText(Numbers::rounded(double(length) / 1024.0, decimals)) + QStringLiteral(" KB");
}
