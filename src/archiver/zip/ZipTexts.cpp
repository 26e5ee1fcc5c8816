#include "ZipTexts.h"

QString ZipTexts::zipped(int count, const QString &archive)
{
    return QStringLiteral("Zipped ") + QString::number(count) + QStringLiteral(" file(s).\n\n   To: ") +
           archive;
}

QString ZipTexts::zippedBelow(const QString &folder, const QString &archive)
{
    return QStringLiteral("Zipped files.\n\n   Source: files matching *.fr*;*.cls;*.bas from ") + folder +
           QStringLiteral("\n   To: ") + archive;
}
