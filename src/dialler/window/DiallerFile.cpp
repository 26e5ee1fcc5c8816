#include "DiallerFile.h"

#include "Files.h"
#include "Numbers.h"
#include "Paths.h"
#include "PlainText.h"
#include "RuntimeError.h"

#include <algorithm>
#include <limits>

namespace {

QString path()
{
    return Paths::native(Paths::appPath() + QStringLiteral("\\dialler.dat"));
}

/// What is in front of the first blank or line end; blanks in front of it are skipped.
QString firstField(const QString &text)
{
    const auto isBlank = [](QChar sign) { return sign == u' ' || sign == u'\t'; };
    const auto isEnd = [&](QChar sign) { return isBlank(sign) || sign == u'\r' || sign == u'\n'; };
    const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
    return QString(begin, std::find_if(begin, text.end(), isEnd) - begin);
}

} // namespace

qint32 DiallerFile::read()
{
    using Limits = std::numeric_limits<qint32>;
    const QString field = firstField(PlainText::fromWindows1252(Files::read(path())));
    const double number = Numbers::rounded(Numbers::leadingNumber(field), 0);
    if (number < Limits::min() || number > Limits::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return qint32(number);
}

void DiallerFile::write(qint32 position)
{
    // As numbers are printed to files: a place for the sign in front, and a blank behind.
    const QByteArray sign = position < 0 ? QByteArray() : QByteArray(" ");
    Files::write(path(), sign + QByteArray::number(position) + " \r\n");
}
