#include "RtfFormats.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfColorTable.h"
#include "RtfFontTable.h"
#include "RtfParagraphRows.h"
#include "RtfStyleSheet.h"

RtfFormats::RtfFormats(const RtfFontTable &fonts, const RtfColorTable &colors, const RtfParagraphRows &rows,
                       const RtfStyleSheet &styles)
    : m_fonts(fonts)
    , m_colors(colors)
    , m_rows(rows)
    , m_styles(styles)
{}

int RtfFormats::number(const RtfCharacterState &state)
{
    const auto [entry, isNew] = m_characterNumbers.try_emplace(state, int(m_characters.size()));
    if (isNew)
        m_characters.append(make(state));
    return entry->second;
}

int RtfFormats::number(const RtfParagraphState &state, bool isInList)
{
    RtfParagraphState key = state;
    // What says where the paragraph is rather than how it looks.
    key.level = key.oldNumbering = key.isInTable = key.tableDepth = 0;
    key.list = isInList;
    const auto [entry, isNew] = m_paragraphNumbers.try_emplace(key, int(m_paragraphs.size()));
    if (isNew)
        m_paragraphs.append(make(key, isInList));
    return entry->second;
}

int RtfFormats::addPicture(const QTextImageFormat &format, const RtfCharacterState &state)
{
    QTextCharFormat picture = make(state);
    picture.merge(format);
    picture.setObjectType(QTextFormat::ImageObject);
    m_characters.append(picture);
    return int(m_characters.size()) - 1;
}

int RtfFormats::add(PageSections::Section section)
{
    m_sections.append(std::move(section));
    return int(m_sections.size());
}

int RtfFormats::addMark(int number, int note)
{
    QTextCharFormat format = m_characters.at(number);
    format.setProperty(RichTextProperty::NoteMark, note);
    m_characters.append(format);
    return int(m_characters.size()) - 1;
}

int RtfFormats::addUnseen(int number, const Unseen::Pieces &pieces)
{
    QTextCharFormat format = m_characters.at(number);
    Unseen::set(format, pieces);
    m_characters.append(format);
    return int(m_characters.size()) - 1;
}

int RtfFormats::linkTo(const QString &address)
{
    m_fields.append({address, {}});
    return int(m_fields.size());
}

int RtfFormats::fieldOf(const QString &instruction)
{
    m_fields.append({{}, instruction});
    return int(m_fields.size());
}

QTextCharFormat RtfFormats::make(const RtfCharacterState &state) const
{
    constexpr double halfPointsPerPoint = 2;
    constexpr int leastRaised = 4; // half points: Qt makes two thirds of it, in whole points
    const bool isRaised = state.script != RtfCharacterState::Normal;
    const int halfPoints = isRaised ? qMax(state.halfPoints, leastRaised) : state.halfPoints;
    QTextCharFormat format;
    format.setFontFamilies({m_fonts.font(state.font).family});
    format.setFontPointSize(halfPoints / halfPointsPerPoint);
    if ((state.switches & RtfCharacterState::Bold) != 0)
        format.setFontWeight(QFont::Bold);
    if ((state.switches & RtfCharacterState::Italic) != 0)
        format.setFontItalic(true);
    if ((state.switches & RtfCharacterState::Strike) != 0)
        format.setFontStrikeOut(true);
    if ((state.switches & RtfCharacterState::Caps) != 0)
        format.setFontCapitalization(QFont::AllUppercase);
    else if ((state.switches & RtfCharacterState::SmallCaps) != 0)
        format.setFontCapitalization(QFont::SmallCaps);
    if (state.underline != QTextCharFormat::NoUnderline)
        format.setUnderlineStyle(QTextCharFormat::UnderlineStyle(state.underline));
    if (state.language != 0)
        format.setProperty(RichTextProperty::Language, state.language);
    if (state.note != 0) {
        format.setProperty(RichTextProperty::NoteMark, state.note);
        format.setProperty(RichTextProperty::NoteCount, state.noteCount);
    }
    if (state.field != 0)
        setField(format, m_fields.at(state.field - 1));
    setPosition(format, state);
    setColors(format, state);
    return format;
}

void RtfFormats::setField(QTextCharFormat &format, const Field &field) const
{
    if (!field.instruction.isEmpty())
        format.setProperty(RichTextProperty::Field, field.instruction);
    if (field.address.isEmpty())
        return;
    format.setAnchor(true);
    format.setAnchorHref(field.address);
}

void RtfFormats::setPosition(QTextCharFormat &format, const RtfCharacterState &state) const
{
    if (state.script == RtfCharacterState::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    else if (state.script == RtfCharacterState::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (state.shift != 0) {
        constexpr double percent = 100;
        format.setProperty(RichTextProperty::BaselineShift, state.shift);
        format.setBaselineOffset(percent * state.shift / state.halfPoints);
    }
}

void RtfFormats::setColors(QTextCharFormat &format, const RtfCharacterState &state) const
{
    const QColor foreground = m_colors.color(state.foreground);
    if (foreground.isValid())
        format.setForeground(foreground);
    const QColor highlight = m_colors.color(state.highlight);
    const QColor background = highlight.isValid() ? highlight : m_colors.color(state.shading);
    if (background.isValid())
        format.setBackground(background);
    if (background.isValid() && !highlight.isValid())
        format.setProperty(RichTextProperty::IsShading, true);
}

QTextBlockFormat RtfFormats::make(const RtfParagraphState &state, bool isInList) const
{
    QTextBlockFormat format;
    if (state.alignment != 0)
        format.setAlignment(Qt::Alignment(state.alignment));
    if (state.isRightToLeft != 0)
        format.setLayoutDirection(Qt::RightToLeft);
    if (state.left != 0 || state.right != 0 || state.firstLine != 0)
        ParagraphFormat::setIndents(format, state.left, state.right, state.firstLine);
    if (isInList)
        format.setTextIndent(0); // the mark hangs there
    if (state.before != 0 || state.after != 0)
        ParagraphFormat::setSpacing(format, state.before, state.after);
    if (state.spacing != 0)
        ParagraphFormat::setLineSpacing(format, state.spacing, state.isMultiple != 0);
    if (state.tabs != 0) {
        format.setTabPositions(m_rows.stops.tabs(state.tabs));
        format.setProperty(RichTextProperty::TabStops, m_rows.stops.words(state.tabs));
    }
    const QString flow = state.flowWords();
    if (!flow.isEmpty())
        format.setProperty(RichTextProperty::Flow, flow);
    const QString style = m_styles.name(state.style);
    if (!style.isEmpty())
        format.setProperty(RichTextProperty::Style, style);
    const QString borders = m_rows.borders.words(state.borders, m_colors);
    if (!borders.isEmpty())
        format.setProperty(RichTextProperty::Borders, borders);
    const QColor shading = m_colors.color(state.shading);
    if (shading.isValid())
        format.setBackground(shading);
    if (state.note != 0)
        format.setProperty(RichTextProperty::Note, state.note);
    if (state.isNoteAtEnd != 0)
        format.setProperty(RichTextProperty::NoteIsAtEnd, true);
    if (state.section != 0)
        PageSections::begin(format, m_sections.at(state.section - 1));
    if (state.breaksPage != 0)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return format;
}
