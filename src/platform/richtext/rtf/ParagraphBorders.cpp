#include "ParagraphBorders.h"

#include <QStringList>
#include <algorithm>

namespace {

using Names = std::array<QLatin1String, ParagraphBorders::SideCount>;

const Names &names()
{
    static const Names names = {QLatin1String("brdrt"), QLatin1String("brdrl"),   QLatin1String("brdrb"),
                                QLatin1String("brdrr"), QLatin1String("brdrbtw"), QLatin1String("brdrbar")};
    return names;
}

constexpr QLatin1String shadow("brdrsh");
constexpr QLatin1String width("brdrw");
constexpr QLatin1String space("brsp");
constexpr QLatin1String color("brdrcf");

QStringList wordsOf(const ParagraphBorder &border)
{
    QStringList words{border.style};
    if (border.hasShadow)
        words.append(shadow);
    if (border.width >= 0)
        words.append(width + QString::number(border.width));
    if (border.space >= 0)
        words.append(space + QString::number(border.space));
    if (border.color.isValid())
        words.append(color + border.color.name());
    return words;
}

/// The number at the end of \a word, where that is \a name with a number.
bool readNumber(const QString &word, QLatin1String name, int &number)
{
    bool isNumber = false;
    const int value = word.startsWith(name) ? word.mid(name.size()).toInt(&isNumber) : 0;
    if (isNumber)
        number = value;
    return isNumber;
}

void readWord(const QString &word, ParagraphBorder &border)
{
    if (word == shadow)
        border.hasShadow = true;
    else if (word.startsWith(color))
        border.color = QColor(word.mid(color.size()));
    else if (!readNumber(word, width, border.width) && !readNumber(word, space, border.space))
        border.style = word;
}

} // namespace

ParagraphBorders ParagraphBorders::read(const QString &words)
{
    ParagraphBorders borders;
    size_t open = 0;
    for (const QString &word : words.split(u' ', Qt::SkipEmptyParts)) {
        const auto side = std::find(names().cbegin(), names().cend(), word);
        if (side != names().cend())
            open = size_t(side - names().cbegin());
        else
            readWord(word, borders.sides[open]);
    }
    return borders;
}

QString ParagraphBorders::words() const
{
    QStringList words;
    for (size_t side = 0; side < SideCount; ++side) {
        if (sides[side].isShown())
            words << names()[side] << wordsOf(sides[side]);
    }
    return words.join(u' ');
}
