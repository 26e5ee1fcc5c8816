#include "WrittenLists.h"

#include "ListMark.h"
#include "RichTextProperties.h"
#include "RtfWords.h"
#include "WrittenFonts.h"

#include <QTextList>

namespace {

int levelOf(const QTextListFormat &format)
{
    constexpr int deepest = 8;
    const int level = format.hasProperty(RichTextProperty::ListLevel)
                          ? format.intProperty(RichTextProperty::ListLevel)
                          : format.indent() - 1;
    return qBound(0, level, deepest);
}

int startOf(const QTextListFormat &format)
{
    return format.hasProperty(RichTextProperty::ListStart) ? format.intProperty(RichTextProperty::ListStart)
                                                           : 1;
}

void appendCount(QByteArray &out, qsizetype count)
{
    out.append("\\'").append(QByteArray::number(count, 16).rightJustified(2, '0'));
}

/// The text around an item's number; the number is given as the byte of its level, found by its place.
void appendLevelText(QByteArray &out, const QTextListFormat &format, int level)
{
    out.append("{\\leveltext");
    if (!ListMark::isNumbered(format)) {
        appendCount(out, ListMark::bullet(format).size());
        RtfWords::appendText(out, ListMark::bullet(format));
        out.append(";}{\\levelnumbers;}");
        return;
    }
    const QString before = ListMark::before(format);
    const QString behind = ListMark::behind(format);
    appendCount(out, before.size() + 1 + behind.size());
    RtfWords::appendText(out, before);
    appendCount(out, level);
    RtfWords::appendText(out, behind);
    out.append(";}{\\levelnumbers");
    appendCount(out, before.size() + 1);
    out.append(";}");
}

QByteArray levels(const QTextListFormat &format, const QByteArray &indents, WrittenFonts &fonts)
{
    const int level = levelOf(format);
    QByteArray out = level == 0 ? "\\listsimple1" : "";
    for (int i = 0; i <= level; ++i) {
        out.append("{\\listlevel");
        RtfWords::append(out, "levelnfc", ListMark::kind(format));
        out.append("\\leveljc0\\levelfollow0");
        RtfWords::append(out, "levelstartat", startOf(format));
        appendLevelText(out, format, i);
        if (format.hasProperty(RichTextProperty::ListBulletFont))
            RtfWords::append(out, "f", fonts.number(format.stringProperty(RichTextProperty::ListBulletFont)));
        out.append(indents).append('}');
    }
    return out;
}

} // namespace

int WrittenLists::number(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts)
{
    const auto known = m_numbers.constFind(&list);
    if (known != m_numbers.constEnd())
        return *known;

    const QTextListFormat format = list.format();
    const QByteArray definition = levels(format, indents, fonts);
    int number = ListMark::isNumbered(format) ? 0 : m_bullets.value(definition);
    if (number == 0) {
        m_definitions.append(definition);
        number = int(m_definitions.size());
        if (!ListMark::isNumbered(format))
            m_bullets.insert(definition, number);
    }
    m_numbers.insert(&list, number);
    return number;
}

QByteArray WrittenLists::words(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts)
{
    QByteArray out;
    RtfWords::append(out, "ls", number(list, indents, fonts));
    const int level = levelOf(list.format());
    if (level > 0)
        RtfWords::append(out, "ilvl", level);
    return out + indents;
}

QByteArray WrittenLists::nextMark(const QTextList &list)
{
    const QTextListFormat format = list.format();
    QByteArray out = "{\\listtext ";
    RtfWords::appendText(out, ListMark::text(format, startOf(format) + m_items[&list]++));
    return out.append("\\tab}");
}

QByteArray WrittenLists::tables() const
{
    if (m_definitions.isEmpty())
        return {};
    QByteArray lists = "{\\*\\listtable";
    QByteArray overrides = "{\\*\\listoverridetable";
    for (int number = 1; number <= m_definitions.size(); ++number) {
        lists.append("\n{\\list");
        RtfWords::append(lists, "listtemplateid", number);
        lists.append(m_definitions.at(number - 1));
        RtfWords::append(lists, "listid", number);
        lists.append('}');
        overrides.append("{\\listoverride");
        RtfWords::append(overrides, "listid", number);
        overrides.append("\\listoverridecount0");
        RtfWords::append(overrides, "ls", number);
        overrides.append('}');
    }
    return lists + "}\n" + overrides + '}';
}
