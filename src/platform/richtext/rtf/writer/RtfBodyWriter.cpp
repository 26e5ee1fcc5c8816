#include "RtfBodyWriter.h"

#include "FrameSign.h"
#include "PageSections.h"
#include "RichTextProperties.h"
#include "RowWords.h"
#include "RtfHeader.h"
#include "RtfPageWriter.h"
#include "RtfPicture.h"
#include "RtfWords.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

namespace {

constexpr const char *paragraphEnd = "\\par";
constexpr const char *sectionEnd = "\\sect";
constexpr const char *cellEnd = "\\cell";
constexpr const char *nestedCellEnd = "\\nestcell{\\nonesttables\\par}";
constexpr const char *noteEnd = ""; // its group ends its last paragraph

bool isAll(const QTextDocument &document, int from, int to)
{
    return from == 0 && to >= document.characterCount() - 1;
}

} // namespace

RtfBodyWriter::RtfBodyWriter(const QTextDocument &document, int from, int to, RtfHeader &header,
                             Sections sections)
    : m_document(document)
    , m_text(document.toRawText())
    , m_from(from)
    , m_to(to)
    , m_header(header)
    , m_characters(document.allFormats(), header)
    , m_paragraphs(document, document.allFormats(), header)
    , m_places(Unseen::places(document))
    , m_notes(isAll(document, from, to) ? NotePlaces(document) : NotePlaces())
    , m_hasSections(sections == Sections::Written && m_paragraphs.beginSections())
{}

QByteArray RtfBodyWriter::write()
{
    m_stream.reserve(2 * qsizetype(m_to - m_from));
    blocks(0, m_document.characterCount() - 1, paragraphEnd);
    return m_stream.take();
}

/// The blocks and frames from the position \a start to \a end, the last of which ends in \a lastEnd.
/// Positions are counted along: asking each block for its own costs more than writing it.
void RtfBodyWriter::blocks(int start, int end, const char *lastEnd)
{
    QTextBlock block = m_document.findBlock(start);
    for (int position = start; position <= end && position < m_to;) {
        if (position > start && startsFrame(position)) {
            const QTextFrame *child = QTextCursor(block).currentFrame();
            childFrame(*child);
            position = child->lastPosition() + 1;
            block = m_document.findBlock(position);
            continue;
        }
        const int note = m_notes.noteAt(position);
        if (note != 0 && note != m_note) { // it is written at its mark
            position = m_notes.note(note).last + 1;
            block = m_document.findBlock(position);
            continue;
        }
        const int next = position + block.length();
        if (isOnlyBeforeTable(block, next)) {
            position = next;
            block = block.next();
            continue;
        }
        if (m_hasSections && m_depth == 0)
            beginSection(block);
        this->block(block, position, next > end ? lastEnd : endOf(block));
        position = next;
        block = block.next();
    }
}

/// One that has begun already does not begin again: splitting a paragraph copies its format.
bool RtfBodyWriter::beginsSection(const QTextBlock &block) const
{
    const PageSections::Section section = PageSections::of(block.blockFormat());
    return section && !m_sections.contains(section.get());
}

/// The section ends with its last paragraph; an empty one would not be seen without an end of its own.
const char *RtfBodyWriter::endOf(const QTextBlock &block)
{
    const bool endsSection =
        m_hasSections && m_depth == 0 && block.length() > 1 && beginsSection(block.next());
    m_sectionHasEnded = endsSection;
    return endsSection ? sectionEnd : paragraphEnd;
}

void RtfBodyWriter::beginSection(const QTextBlock &block)
{
    if (!beginsSection(block))
        return;
    const PageSections::Section section = PageSections::of(block.blockFormat());
    m_sections.insert(section.get());
    if (!std::exchange(m_sectionHasEnded, false)) {
        setParagraph(0); // no longer a table's
        m_stream.line(sectionEnd);
    }
    m_stream.group(RtfPageWriter::write(*section, m_header));
}

void RtfBodyWriter::childFrame(const QTextFrame &child)
{
    if (child.lastPosition() < m_from || child.firstPosition() > m_to)
        return;
    if (m_hasSections && m_depth == 0)
        beginSection(m_document.findBlock(child.firstPosition()));
    if (const auto *inner = qobject_cast<const QTextTable *>(&child))
        table(*inner);
    else
        blocks(child.firstPosition(), child.lastPosition(), paragraphEnd);
}

/// A selection inside one cell is text; one over several cells of a table takes them whole.
void RtfBodyWriter::table(const QTextTable &table)
{
    const bool isInside = m_from >= table.firstPosition() && m_to <= table.lastPosition();
    if (!isInside) {
        cells(table, {0, table.rows() - 1, 0, table.columns() - 1});
        return;
    }
    const QTextTableCell first = table.cellAt(m_from);
    const QTextTableCell last = table.cellAt(m_to);
    if (first == last) {
        blocks(first.firstPosition(), first.lastPosition(), paragraphEnd);
        return;
    }
    m_from = 0;
    m_to = m_document.characterCount();
    const auto lastRow = [](const QTextTableCell &cell) { return cell.row() + cell.rowSpan() - 1; };
    const auto lastColumn = [](const QTextTableCell &cell) { return cell.column() + cell.columnSpan() - 1; };
    cells(table, {qMin(first.row(), last.row()), qMax(lastRow(first), lastRow(last)),
                  qMin(first.column(), last.column()), qMax(lastColumn(first), lastColumn(last))});
    m_to = 0; // the rest of the document is not selected
}

void RtfBodyWriter::cells(const QTextTable &table, const Cells &cells)
{
    RowWords words(table, cells.firstRow, m_header.colours);
    ++m_depth;
    for (int i = cells.firstRow; i <= cells.lastRow; ++i) {
        const QByteArray definition = words.row(i, cells.firstColumn, cells.lastColumn);
        if (m_depth == 1)
            m_stream.line(definition);
        row(table, i, cells);
        if (m_depth == 1)
            m_stream.line("\\row");
        else
            m_stream.group("{\\*\\nesttableprops" + definition + "\\nestrow}{\\nonesttables\\par}\n");
    }
    --m_depth;
}

void RtfBodyWriter::row(const QTextTable &table, int row, const Cells &cells)
{
    const char *end = m_depth == 1 ? cellEnd : nestedCellEnd;
    for (int column = cells.firstColumn; column <= cells.lastColumn;) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.row() == row || row == cells.firstRow) {
            blocks(cell.firstPosition(), cell.lastPosition(), end);
        } else { // the lower part of a merged cell
            setParagraph(0);
            m_stream.line(end);
        }
        column = cell.column() + cell.columnSpan();
    }
}

void RtfBodyWriter::block(const QTextBlock &block, int start, const char *end)
{
    const int last = start + block.length() - 1;
    if (last < m_from || start >= m_to)
        return;
    // A paragraph's properties go with its end.
    const bool endIsSelected = last < m_to;
    const ParagraphWords::Paragraph paragraph = endIsSelected
                                                    ? m_paragraphs.paragraph(block.blockFormatIndex())
                                                    : ParagraphWords::Paragraph{0, nullptr};
    setParagraph(paragraph.words);
    if (paragraph.list)
        m_stream.group(m_header.lists.nextMark(*paragraph.list));
    if (start != last)
        runs(block, start);
    if (endIsSelected && m_characters.hasUnseen())
        unseen(m_characters.unseen(block.charFormatIndex()), last);
    if (start == last)
        setCharacters(wordsOfEmpty(block, start));
    if (endIsSelected)
        m_stream.line(end);
    else
        setCharacters(0);
}

bool RtfBodyWriter::startsFrame(int position) const
{
    return position > 0 && position <= m_text.size() && m_text.at(position - 1) == FrameSign::begin;
}

/// Nobody has written into it since the file was read; \a next is the position behind it.
bool RtfBodyWriter::isOnlyBeforeTable(const QTextBlock &block, int next) const
{
    return block.length() == 1 && startsFrame(next) &&
           block.blockFormat().boolProperty(RichTextProperty::OnlyBeforeTable) &&
           !Unseen::isIn(block.charFormat());
}

int RtfBodyWriter::wordsOfEmpty(const QTextBlock &block, int start)
{
    const int format = block.charFormatIndex();
    return startsFrame(start) ? m_characters.wordsAtCellStart(format) : m_characters.run(format).words;
}

void RtfBodyWriter::runs(const QTextBlock &block, int next)
{
    int field = 0;
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment fragment = part.fragment();
        const int start = qMax(next, m_from);
        next += fragment.length();
        const int end = qMin(next, m_to);
        if (start >= end)
            continue;
        const QStringView text = QStringView(m_text).mid(start, end - start);
        const CharacterWords::Run run = m_characters.run(fragment.charFormatIndex(), text);
        if (run.field != field && field != 0)
            m_stream.endField();
        unseen(run.unseen, next - fragment.length());
        if (run.field != field && run.field != 0)
            m_stream.startField(m_characters.instruction(run.field));
        field = run.field;
        setCharacters(run.words);
        if (run.isPicture)
            pictures(fragment.charFormatIndex(), text);
        else if (isNumber(run, text, start))
            m_stream.group("{\\chftn}");
        else
            m_stream.text(text);
        if (run.note != 0 && m_notes.markAt(start) == run.note) {
            m_stream.group(note(run.note));
            m_stream.forgetParagraph();
        }
    }
    if (field != 0)
        m_stream.endField();
}

/// Of a note: its mark, or what its own text begins with. Notes are counted anew by whoever reads them.
bool RtfBodyWriter::isNumber(const CharacterWords::Run &run, QStringView text, int position) const
{
    const bool isMark = run.note != 0 && (run.note == m_note || m_notes.markAt(position) == run.note);
    return isMark && m_notes.note(run.note).isCounted && text == QString::number(run.noteCount);
}

QByteArray RtfBodyWriter::note(int number)
{
    const NotePlaces::Note place = m_notes.note(number);
    RtfStream text = std::exchange(m_stream, RtfStream());
    const int outer = std::exchange(m_note, number);
    const int depth = std::exchange(m_depth, 0);
    const bool isLastEmpty = m_document.findBlock(place.last).length() == 1;
    blocks(place.first, place.last, isLastEmpty ? paragraphEnd : noteEnd);
    m_depth = depth;
    m_note = outer;
    std::swap(text, m_stream);
    const char *word = place.isAtEnd ? "{\\footnote\\ftnalt" : "{\\footnote";
    return word + QByteArray("\\pard\\plain ") + text.take() + '}';
}

/// What is before the first character of a selection is not in it, unless all is.
bool RtfBodyWriter::isSelected(int position) const
{
    return position > m_from || isAll(m_document, m_from, m_to);
}

void RtfBodyWriter::unseen(const Unseen::Pieces &pieces, int position)
{
    for (const auto &piece : pieces) {
        if (m_places.value(piece.get()) != position || !isSelected(position))
            continue;
        setCharacters(0);
        m_stream.group(bytesOf(*piece));
    }
}

/// A comment may have pieces of its own.
QByteArray RtfBodyWriter::bytesOf(const Unseen::Piece &piece)
{
    QList<QTextFormat> formats;
    for (const Unseen::Run &run : piece.text)
        formats.append(run.format);
    CharacterWords characters(formats, m_header);
    QByteArray out = piece.before;
    for (int i = 0; i < formats.size(); ++i) {
        const Unseen::Run &run = piece.text.at(i);
        for (const auto &inner : Unseen::of(run.format))
            out.append(bytesOf(*inner));
        if (!run.text.isEmpty())
            out.append(textOf(run, characters.words(characters.run(i, run.text).words)));
    }
    return out + piece.after;
}

QByteArray RtfBodyWriter::textOf(const Unseen::Run &run, const QByteArray &words) const
{
    QByteArray out = '{' + words;
    if (!words.isEmpty())
        out.append(' ');
    const bool isPicture = run.format.isImageFormat();
    const QByteArray picture =
        isPicture ? RtfPicture::group(m_document, run.format.toImageFormat()) : QByteArray();
    for (const QChar c : run.text) {
        if (c == QChar::ParagraphSeparator)
            out.append("\\par ");
        else if (isPicture && c == QChar::ObjectReplacementCharacter)
            out.append(picture);
        else
            RtfWords::appendText(out, QStringView(&c, 1));
    }
    return out + '}';
}

void RtfBodyWriter::pictures(int format, QStringView places)
{
    const QByteArray picture = RtfPicture::group(m_document, m_characters.format(format).toImageFormat());
    for (const QChar place : places) {
        if (place == QChar::ObjectReplacementCharacter)
            m_stream.group(picture);
        else
            m_stream.text(QStringView(&place, 1));
    }
}
