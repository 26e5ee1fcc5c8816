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

/// The mark of an item, in which the byte of a level stands for its number; and the places of those.
void appendMark(QByteArray &out, const QString &mark)
{
    constexpr int levels = 9;
    QByteArray places;
    appendCount(out, mark.size());
    for (qsizetype i = 0; i < mark.size(); ++i) {
        if (mark.at(i) < QChar(levels)) {
            appendCount(out, mark.at(i).unicode());
            appendCount(places, i + 1);
        } else {
            RtfWords::appendText(out, QStringView(mark).mid(i, 1));
        }
    }
    out.append(";}{\\levelnumbers").append(places).append(";}");
}

void appendLevelText(QByteArray &out, const QTextListFormat &format, int level)
{
    out.append("{\\leveltext");
    if (!ListMark::isNumbered(format)) {
        appendCount(out, ListMark::bullet(format).size());
        RtfWords::appendText(out, ListMark::bullet(format));
        out.append(";}{\\levelnumbers;}");
    } else if (level == levelOf(format) && format.hasProperty(RichTextProperty::ListLevelText)) {
        appendMark(out, format.stringProperty(RichTextProperty::ListLevelText));
    } else {
        appendMark(out, ListMark::before(format) + QChar(level) + ListMark::behind(format));
    }
}

QByteArray levelWords(const QTextListFormat &format, int level, const QByteArray &indents,
                      WrittenFonts &fonts)
{
    QByteArray out = "{\\listlevel";
    RtfWords::append(out, "levelnfc", ListMark::kind(format));
    out.append("\\leveljc0\\levelfollow0");
    RtfWords::append(out, "levelstartat", startOf(format));
    appendLevelText(out, format, level);
    if (format.hasProperty(RichTextProperty::ListBulletFont))
        RtfWords::append(out, "f", fonts.number(format.stringProperty(RichTextProperty::ListBulletFont)));
    return out.append(indents).append('}');
}

} // namespace

int WrittenLists::number(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts)
{
    const auto known = m_numbers.constFind(&list);
    if (known != m_numbers.constEnd())
        return *known;

    const QTextListFormat format = list.format();
    Definition own;
    for (int i = 0; i <= levelOf(format); ++i) // of those above nobody has said anything
        own.levels.append(levelWords(format, i, indents, fonts));
    own.looks.insert(levelOf(format), levelWords(format, levelOf(format), {}, fonts));
    const bool isOutline = format.hasProperty(RichTextProperty::ListNumber);
    const bool isShared = !isOutline && !ListMark::isNumbered(format);
    const QByteArray look = own.levels.join();
    int number = isOutline ? outline(format, own) : m_bullets.value(isShared ? look : QByteArray());
    if (number == 0) {
        m_definitions.append(own);
        number = int(m_definitions.size());
    }
    if (isShared)
        m_bullets.insert(look, number);
    if (isOutline)
        m_outlines.insert(format.intProperty(RichTextProperty::ListNumber), number);
    m_numbers.insert(&list, number);
    return number;
}

/// The list that \a format is a level of, which gets that level from \a own; 0 where numbers would go on that
/// have to begin anew.
int WrittenLists::outline(const QTextListFormat &format, const Definition &own)
{
    const int number = m_outlines.value(format.intProperty(RichTextProperty::ListNumber));
    const int level = levelOf(format);
    if (number == 0 || level == 0)
        return 0;
    Definition &definition = m_definitions[number - 1];
    if (definition.looks.contains(level))
        return definition.looks.value(level) == own.looks.value(level) ? number : 0;
    definition.looks.insert(own.looks);
    while (definition.levels.size() <= level)
        definition.levels.append(own.levels.at(definition.levels.size()));
    definition.levels[level] = own.levels.at(level);
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
        const QList<QByteArray> &levels = m_definitions.at(number - 1).levels;
        lists.append(levels.size() == 1 ? "\\listsimple1" : "").append(levels.join());
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
