#include "ShownText.h"

#include "SurrogatePair.h"

namespace {

constexpr QChar mark = QChar::ReplacementCharacter;

/// The joiners U+200C and U+200D are kept: words of several scripts, and many emoji, are written with them.
bool isHidden(QChar character)
{
    const char16_t code = character.unicode();
    return character.category() == QChar::Other_Control || code == 0x061c || code == 0x200b ||
           code == 0x200e || code == 0x200f || (code >= 0x2028 && code <= 0x202e) ||
           (code >= 0x2060 && code <= 0x206f) || code == 0xfeff;
}

QString marked(const QString &text, QStringView kept)
{
    QString shown = text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isSurrogatePair(text, i))
            ++i;
        else if (text[i].isSurrogate() || (isHidden(text[i]) && !kept.contains(text[i])))
            shown[i] = mark;
    }
    return shown;
}

} // namespace

QString ShownText::line(const QString &text)
{
    return marked(text, {});
}

QString ShownText::lines(const QString &text)
{
    QString unified = text;
    unified.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    return marked(unified, u"\n\t");
}

QString ShownText::toolTip(const QString &text)
{
    const QString shown = lines(text);
    // A tool tip takes what has a tag or an entity as markup; other text it shows as it is.
    if (!shown.contains(u'<') && !shown.contains(u'&'))
        return shown;
    return QStringLiteral("<qt>%1</qt>").arg(shown.toHtmlEscaped().replace(u'\n', QLatin1String("<br/>")));
}
