#include "RtfListLevel.h"

#include "ListMark.h"
#include "RichTextProperties.h"

#include <algorithm>

namespace {

bool isNumber(QChar c)
{
    return c.unicode() < RtfListLevel::count;
}

/// The paragraphs of a list that belong to the item above them have such a bullet.
bool isBlank(const QString &bullet)
{
    return !bullet.isEmpty() && bullet.trimmed().isEmpty();
}

QTextListFormat::Style bulletStyle(const QString &bullet)
{
    static const QString circles = QStringLiteral("o\u25CB\u25E6\u26AA\u274D\u2010");
    static const QString squares = QStringLiteral("\u25A0\u25A1\u25AA\u25AB\u00A7\uF0A7\uF06E\u2751\u25FB");
    if (!bullet.isEmpty() && circles.contains(bullet.front()))
        return QTextListFormat::ListCircle;
    if (!bullet.isEmpty() && squares.contains(bullet.front()))
        return QTextListFormat::ListSquare;
    return QTextListFormat::ListDisc;
}

/// Signs in an area for private use mean nothing without their font.
bool isOfFont(const QString &text)
{
    return text.size() == 1 && text.front().category() == QChar::Other_PrivateUse;
}

bool isSign(const QString &text)
{
    const bool isPair = text.size() == 2 && text.front().isHighSurrogate() && text.back().isLowSurrogate();
    const bool isOne =
        text.size() == 1 && !text.front().isSurrogate() && text.front().isPrint() && !text.front().isSpace();
    return isPair || isOne;
}

} // namespace

QTextListFormat::Style RtfListLevel::style() const
{
    switch (kind) {
    case 1:
        return QTextListFormat::ListUpperRoman;
    case 2:
        return QTextListFormat::ListLowerRoman;
    case 3:
        return QTextListFormat::ListUpperAlpha;
    case 4:
        return QTextListFormat::ListLowerAlpha;
    case bulleted:
        return isBlank(text) ? QTextListFormat::ListStyleUndefined : bulletStyle(text);
    case unmarked:
        return QTextListFormat::ListStyleUndefined;
    default: // ordinals, digits of other scripts ...: Qt has none of them
        return QTextListFormat::ListDecimal;
    }
}

QTextListFormat RtfListLevel::format(int depth, const QString &family) const
{
    QTextListFormat format;
    format.setStyle(style());
    format.setIndent(0);
    if (depth > 0)
        format.setProperty(RichTextProperty::ListLevel, depth);
    if (kind == bulleted && isOfFont(text) && !family.isEmpty()) {
        format.setProperty(RichTextProperty::ListBullet, text);
        format.setProperty(RichTextProperty::ListBulletFont, family);
    } else if (kind == bulleted && isBlank(text)) {
        format.setProperty(RichTextProperty::ListBullet, QStringLiteral(" "));
    } else if (kind == bulleted && isSign(text) && text != ListMark::bullet(format)) {
        format.setProperty(RichTextProperty::ListBullet, text);
    }
    if (kind == bulleted || kind == unmarked)
        return format;

    // The numbers of other levels are left out with what parts them, until they are known.
    const auto first = std::find_if(text.begin(), text.end(), isNumber);
    const auto last = std::find_if(text.rbegin(), text.rend(), isNumber).base();
    const bool hasNumber = first != text.end();
    format.setNumberPrefix(hasNumber ? text.left(first - text.begin()) : QString());
    format.setNumberSuffix(hasNumber ? text.mid(last - text.begin()) : text);
    if (start != 1)
        format.setProperty(RichTextProperty::ListStart, start);
    return format;
}

bool RtfListLevel::hasOtherNumbers(int depth) const
{
    const bool isNumbered = kind != bulleted && kind != unmarked;
    return isNumbered && text.contains(QChar(depth)) &&
           std::any_of(text.begin(), text.end(), [=](QChar c) { return isNumber(c) && c != QChar(depth); });
}

void RtfListLevel::setNumerals(QTextListFormat &format, int depth, const QStringList &numerals) const
{
    const auto shown = [&](const QString &part) {
        QString result;
        for (const QChar c : part)
            result += isNumber(c) ? numerals.value(c.unicode()) : QString(c);
        return result;
    };
    const qsizetype own = text.lastIndexOf(QChar(depth));
    format.setNumberPrefix(shown(text.left(own)));
    format.setNumberSuffix(shown(text.mid(own + 1)));
    format.setProperty(RichTextProperty::ListLevelText, text);
}
