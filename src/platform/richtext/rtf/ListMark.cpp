#include "ListMark.h"

#include "RichTextProperties.h"

#include <algorithm>
#include <array>

namespace {

constexpr int longestSide = 100; // of a number: the format counts the characters of a mark in one byte

QString roman(int number)
{
    struct Numeral
    {
        int value;
        const char *text;
    };
    constexpr std::array<Numeral, 13> numerals = {{{1000, "m"},
                                                   {900, "cm"},
                                                   {500, "d"},
                                                   {400, "cd"},
                                                   {100, "c"},
                                                   {90, "xc"},
                                                   {50, "l"},
                                                   {40, "xl"},
                                                   {10, "x"},
                                                   {9, "ix"},
                                                   {5, "v"},
                                                   {4, "iv"},
                                                   {1, "i"}}};
    QString text;
    for (const Numeral &numeral : numerals) {
        for (; number >= numeral.value; number -= numeral.value)
            text += QLatin1String(numeral.text);
    }
    return text;
}

/// a to z, aa to az ...
QString letters(int number)
{
    constexpr int count = 26;
    QString text;
    for (; number > 0; number = (number - 1) / count)
        text += QChar(u'a' + (number - 1) % count);
    std::reverse(text.begin(), text.end());
    return text;
}

} // namespace

QString ListMark::numeral(QTextListFormat::Style style, int number)
{
    constexpr int largestRoman = 4999;
    constexpr int largest = 1000000; // nobody reads letters or numerals of more
    if (number < 1 || number > largest)
        return QString::number(number);
    switch (style) {
    case QTextListFormat::ListLowerAlpha:
        return letters(number);
    case QTextListFormat::ListUpperAlpha:
        return letters(number).toUpper();
    case QTextListFormat::ListLowerRoman:
        return number > largestRoman ? QString::number(number) : roman(number);
    case QTextListFormat::ListUpperRoman:
        return number > largestRoman ? QString::number(number) : roman(number).toUpper();
    default:
        return QString::number(number);
    }
}

int ListMark::kind(const QTextListFormat &format)
{
    constexpr int bulleted = 23;
    switch (format.style()) {
    case QTextListFormat::ListDecimal:
        return 0;
    case QTextListFormat::ListUpperRoman:
        return 1;
    case QTextListFormat::ListLowerRoman:
        return 2;
    case QTextListFormat::ListUpperAlpha:
        return 3;
    case QTextListFormat::ListLowerAlpha:
        return 4;
    default:
        return bulleted;
    }
}

bool ListMark::isNumbered(const QTextListFormat &format)
{
    return format.style() <= QTextListFormat::ListDecimal; // Qt counts bullets down from -1, numbers from -4
}

bool ListMark::isBulleted(const QTextListFormat &format)
{
    return !isNumbered(format) && format.style() != QTextListFormat::ListStyleUndefined;
}

QString ListMark::before(const QTextListFormat &format)
{
    return format.numberPrefix().left(longestSide);
}

QString ListMark::behind(const QTextListFormat &format)
{
    return format.hasProperty(QTextFormat::ListNumberSuffix) ? format.numberSuffix().left(longestSide)
                                                             : QStringLiteral(".");
}

QString ListMark::bullet(const QTextListFormat &format)
{
    return format.hasProperty(RichTextProperty::ListBullet)
               ? format.stringProperty(RichTextProperty::ListBullet)
               : usualBullet(format);
}

QString ListMark::usualBullet(const QTextListFormat &format)
{
    switch (format.style()) {
    case QTextListFormat::ListCircle:
        return QStringLiteral("\u25E6");
    case QTextListFormat::ListSquare:
        return QStringLiteral("\u25AA");
    default:
        return QStringLiteral("\u2022");
    }
}

QString ListMark::text(const QTextListFormat &format, int number)
{
    if (!isNumbered(format))
        return format.hasProperty(RichTextProperty::ListBulletFont) ? usualBullet(format) : bullet(format);
    return before(format) + numeral(format.style(), number) + behind(format);
}
