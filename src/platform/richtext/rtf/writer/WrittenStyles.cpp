#include "WrittenStyles.h"

#include "RtfWords.h"
#include "WrittenColours.h"
#include "WrittenFonts.h"

namespace {

QByteArray bytesOf(const TextStyle &style, WrittenFonts &fonts, WrittenColours &colours)
{
    QByteArray out = "{";
    if (style.kind == TextStyle::Kind::Character)
        RtfWords::append(out.append("\\*"), "cs", style.number);
    else
        RtfWords::append(out, "s", style.number);
    for (const TextStyle::Word &word : style.words) {
        if (word.family)
            RtfWords::append(out, word.spelling, fonts.number(*word.family));
        else if (word.colour)
            RtfWords::append(out, word.spelling, word.colour->isValid() ? colours.number(*word.colour) : 0);
        else if (word.number)
            RtfWords::append(out, word.spelling, *word.number);
        else
            RtfWords::append(out, word.spelling);
    }
    out.append(' ');
    RtfWords::appendText(out, style.name);
    return out.append(";}\n");
}

} // namespace

void WrittenStyles::set(const TextStyles::Sheet &sheet, WrittenFonts &fonts, WrittenColours &colours)
{
    if (!sheet)
        return;
    m_table = "{\\stylesheet\n";
    for (const TextStyle &style : *sheet) {
        m_table.append(bytesOf(style, fonts, colours));
        if (style.kind == TextStyle::Kind::Paragraph && !m_paragraphStyles.contains(style.name))
            m_paragraphStyles.insert(style.name, style.number);
    }
    m_table.append('}');
}

QByteArray WrittenStyles::word(const QString &name) const
{
    QByteArray out;
    const auto number = m_paragraphStyles.constFind(name);
    if (number != m_paragraphStyles.constEnd())
        RtfWords::append(out, "s", *number);
    return out;
}
