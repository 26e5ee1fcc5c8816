#include "SelectionFormats.h"

#include "ParagraphEdits.h"
#include "ParagraphFormat.h"
#include "SelectionRanges.h"

#include <QSet>
#include <QStyle>
#include <QTextDocument>

namespace {

template<class T>
void unite(std::optional<T> &state, const std::optional<T> &other)
{
    if (state != other)
        state.reset();
}

void unite(CharacterStates &states, const CharacterStates &other)
{
    unite(states.bold, other.bold);
    unite(states.italic, other.italic);
    unite(states.underline, other.underline);
    unite(states.strikeThru, other.strikeThru);
    unite(states.color, other.color);
    unite(states.fontName, other.fontName);
    unite(states.fontSize, other.fontSize);
}

void unite(ParagraphStates &states, const ParagraphStates &other)
{
    unite(states.alignment, other.alignment);
    unite(states.bullet, other.bullet);
    unite(states.indent, other.indent);
    unite(states.rightIndent, other.rightIndent);
}

/// The states that all formats given so far have in common.
template<class States>
class Common
{
public:
    void add(const States &states)
    {
        if (m_isEmpty)
            m_states = states;
        else
            unite(m_states, states);
        m_isEmpty = false;
    }
    bool isEmpty() const { return m_isEmpty; }
    bool isAllMixed() const { return !m_isEmpty && m_states == States{}; }
    const States &states() const { return m_states; }

private:
    States m_states;
    bool m_isEmpty = true;
};

double pointSize(const QTextCharFormat &format, const QFont &standard)
{
    constexpr double pointsPerInch = 72;
    if (format.hasProperty(QTextFormat::FontPointSize))
        return format.fontPointSize();
    if (format.hasProperty(QTextFormat::FontPixelSize)) // pasted HTML
        return format.intProperty(QTextFormat::FontPixelSize) * pointsPerInch / ParagraphFormat::layoutDpi();
    return standard.pointSizeF();
}

CharacterStates statesOf(const QTextCharFormat &format, const QFont &standard)
{
    const QStringList families = format.fontFamilies().toStringList();
    CharacterStates states;
    states.bold = format.fontWeight() > QFont::Medium;
    states.italic = format.fontItalic();
    states.underline = format.underlineStyle() != QTextCharFormat::NoUnderline;
    states.strikeThru = format.fontStrikeOut();
    states.color =
        format.foreground().style() == Qt::NoBrush ? QColor(Qt::black) : format.foreground().color();
    states.fontName = families.isEmpty() ? standard.family() : families.first();
    states.fontSize = pointSize(format, standard);
    return states;
}

int alignmentOf(const QTextBlock &block, const QTextBlockFormat &format)
{
    Qt::Alignment alignment = format.alignment();
    if (!(alignment & Qt::AlignAbsolute) && !(alignment & Qt::AlignHCenter))
        alignment = QStyle::visualAlignment(block.textDirection(), alignment);
    if (alignment & Qt::AlignHCenter)
        return 2;
    return alignment & Qt::AlignRight ? 1 : 0;
}

ParagraphStates statesOf(const QTextBlock &block)
{
    const QTextBlockFormat format = block.blockFormat();
    ParagraphStates states;
    states.alignment = alignmentOf(block, format);
    states.bullet = ParagraphEdits::isBulleted(block);
    states.indent = ParagraphFormat::leftIndent(format) + ParagraphFormat::firstLineIndent(format);
    states.rightIndent = ParagraphFormat::rightIndent(format);
    return states;
}

/// Adds the formats of the characters of \a block within \a range; each format counts once.
void gather(Common<CharacterStates> &common, QSet<int> &seen, const QTextBlock &block,
            const SelectionRanges::Range &range)
{
    int latest = -1;
    for (auto it = block.begin(); !it.atEnd() && !common.isAllMixed(); ++it) {
        const QTextFragment run = it.fragment();
        if (run.position() >= range.end)
            return;
        const int index = run.charFormatIndex();
        if (run.position() + run.length() <= range.first || index == latest)
            continue;
        latest = index;
        if (!seen.contains(index)) {
            seen.insert(index);
            common.add(statesOf(run.charFormat(), block.document()->defaultFont()));
        }
    }
}

} // namespace

CharacterStates SelectionFormats::characters(const QTextCursor &selection, const QTextCharFormat &typing)
{
    if (!selection.hasSelection())
        return statesOf(typing, selection.document()->defaultFont());
    if (m_charactersKey == keyOf(selection))
        return m_characters;

    Common<CharacterStates> common;
    QSet<int> seen;
    for (const SelectionRanges::Range &range : SelectionRanges::of(selection)) {
        QTextBlock block = selection.document()->findBlock(range.first);
        for (; block.isValid() && block.position() < range.end && !common.isAllMixed(); block = block.next())
            gather(common, seen, block, range);
    }
    // Nothing but paragraph ends is selected: they have the format of what is typed there.
    if (common.isEmpty())
        common.add(statesOf(typing, selection.document()->defaultFont()));
    m_characters = common.states();
    m_charactersKey = keyOf(selection);
    return m_characters;
}

ParagraphStates SelectionFormats::paragraphs(const QTextCursor &selection)
{
    if (m_paragraphsKey == keyOf(selection))
        return m_paragraphs;

    Common<ParagraphStates> common;
    SelectionRanges::forEachParagraph(selection, [&](const QTextBlock &block) {
        common.add(statesOf(block));
        return !common.isAllMixed();
    });
    m_paragraphs = common.states();
    m_paragraphsKey = keyOf(selection);
    return m_paragraphs;
}

void SelectionFormats::forget()
{
    m_charactersKey = {};
    m_paragraphsKey = {};
}

SelectionFormats::Key SelectionFormats::keyOf(const QTextCursor &selection)
{
    return {selection.document()->revision(), selection.anchor(), selection.position()};
}
