#include "PageFormat.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfWords.h"
#include "Twips.h"

#include <QTextDocument>
#include <QTextFrame>
#include <array>

namespace {

enum class Value : quint8 { Length, Number, None };

struct Row
{
    const char *spelling;
    Value value;
};

/// In the order of PageFormat::Word.
constexpr std::array<Row, PageFormat::WordCount> rows = {
    {{"paperw", Value::Length},    {"paperh", Value::Length},    {"margl", Value::Length},
     {"margr", Value::Length},     {"margt", Value::Length},     {"margb", Value::Length},
     {"gutter", Value::Length},    {"deftab", Value::Length},    {"deflang", Value::Number},
     {"pgnstart", Value::Number},  {"landscape", Value::None},   {"facingp", Value::None},
     {"margmirror", Value::None},  {"htmautsp", Value::None},    {"widowctrl", Value::None},
     {"hyphauto", Value::Number},  {"hyphcaps", Value::Number},  {"hyphconsec", Value::Number},
     {"hyphhotz", Value::Length},  {"fet", Value::Number},       {"ftnbj", Value::None},
     {"ftntj", Value::None},       {"endnotes", Value::None},    {"enddoc", Value::None},
     {"aendnotes", Value::None},   {"aenddoc", Value::None},     {"ftnstart", Value::Number},
     {"aftnstart", Value::Number}, {"ftnnar", Value::None},      {"ftnnalc", Value::None},
     {"ftnnauc", Value::None},     {"ftnnrlc", Value::None},     {"ftnnruc", Value::None},
     {"ftnnchi", Value::None},     {"aftnnar", Value::None},     {"aftnnalc", Value::None},
     {"aftnnauc", Value::None},    {"aftnnrlc", Value::None},    {"aftnnruc", Value::None},
     {"aftnnchi", Value::None},    {"pgwsxn", Value::Length},    {"pghsxn", Value::Length},
     {"marglsxn", Value::Length},  {"margrsxn", Value::Length},  {"margtsxn", Value::Length},
     {"margbsxn", Value::Length},  {"guttersxn", Value::Length}, {"headery", Value::Length},
     {"footery", Value::Length},   {"pgnstarts", Value::Number}, {"lndscpsxn", Value::None},
     {"margmirsxn", Value::None},  {"titlepg", Value::None},     {"pgnrestart", Value::None},
     {"pgndec", Value::None},      {"pgnucrm", Value::None},     {"pgnlcrm", Value::None},
     {"pgnucltr", Value::None},    {"pgnlcltr", Value::None},    {"cols", Value::Number},
     {"colsx", Value::Length},     {"linebetcol", Value::None},  {"sbknone", Value::None},
     {"sbkcol", Value::None},      {"sbkpage", Value::None},     {"sbkeven", Value::None},
     {"sbkodd", Value::None}}};

/// The first and the last of words of which one at a time is set.
constexpr std::array<std::pair<PageFormat::Word, PageFormat::Word>, 6> alternatives = {
    {{PageFormat::NotesAtBottom, PageFormat::NotesAtDocumentEnd},
     {PageFormat::EndnotesAtSectionEnd, PageFormat::EndnotesAtDocumentEnd},
     {PageFormat::NotesArabic, PageFormat::NotesChicago},
     {PageFormat::EndnotesArabic, PageFormat::EndnotesChicago},
     {PageFormat::Decimal, PageFormat::LowerLetters},
     {PageFormat::BreakNone, PageFormat::BreakOdd}}};

constexpr int property(int word)
{
    return RichTextProperty::PageWord + word;
}

QByteArray words(const QTextFrameFormat &format, int first, int end)
{
    QByteArray out;
    for (int word = first; word < end; ++word) {
        if (!format.hasProperty(property(word)))
            continue;
        const Row &row = rows[size_t(word)];
        if (row.value == Value::None)
            RtfWords::append(out, row.spelling);
        else
            RtfWords::append(out, row.spelling, format.intProperty(property(word)));
    }
    return out;
}

} // namespace

std::optional<PageFormat::Word> PageFormat::find(QByteArrayView spelling)
{
    for (int word = 0; word < WordCount; ++word) {
        if (spelling == QByteArrayView(rows[size_t(word)].spelling))
            return Word(word);
    }
    return {};
}

void PageFormat::set(QTextFrameFormat &format, Word word, std::optional<int> value)
{
    const bool isSwitch = rows[size_t(word)].value == Value::None;
    if (!isSwitch && !value)
        return;
    for (const auto &[first, last] : alternatives) {
        const bool isOneOf = word >= first && word <= last;
        for (int other = first; isOneOf && other <= last; ++other) // one of them at a time
            clear(format, Word(other));
    }
    if (isSwitch && value == 0)
        clear(format, word);
    else if (isSwitch)
        format.setProperty(property(word), 1);
    else
        format.setProperty(property(word), qBound(-RtfWords::largestLength, *value, RtfWords::largestLength));
}

void PageFormat::clear(QTextFrameFormat &format, Word word)
{
    format.clearProperty(property(word));
}

void PageFormat::clearSection(QTextFrameFormat &format)
{
    for (int word = SectionWidth; word < WordCount; ++word)
        clear(format, Word(word));
}

std::optional<int> PageFormat::value(const QTextFrameFormat &format, Word word)
{
    if (!format.hasProperty(property(word)))
        return {};
    return format.intProperty(property(word));
}

QByteArray PageFormat::documentWords(const QTextFrameFormat &format)
{
    return words(format, 0, SectionWidth);
}

QByteArray PageFormat::sectionWords(const QTextFrameFormat &format)
{
    const QByteArray section = words(format, SectionWidth, WordCount);
    return section.isEmpty() ? section : "\\sectd" + section;
}

void PageFormat::copy(const QTextDocument &from, QTextDocument &to)
{
    const QTextFrameFormat source = from.rootFrame()->frameFormat();
    QTextFrameFormat format = to.rootFrame()->frameFormat();
    for (int word = 0; word < WordCount; ++word) {
        if (const std::optional<int> said = value(source, Word(word)))
            set(format, Word(word), *said);
    }
    to.rootFrame()->setFrameFormat(format);
    spaceTabs(to);
}

void PageFormat::spaceTabs(QTextDocument &document)
{
    constexpr int usual = Twips::perInch / 2;
    constexpr int narrowest = 60; // lest a line be split between thousands of stops
    const int twips =
        qMax(narrowest, value(document.rootFrame()->frameFormat(), TabDistance).value_or(usual));
    const double distance = twips * ParagraphFormat::layoutDpi() / Twips::perInch;
    QTextOption option = document.defaultTextOption();
    if (option.tabStopDistance() == distance)
        return;
    option.setTabStopDistance(distance);
    document.setDefaultTextOption(option);
}
