#include "LayoutSample.h"

#include <QAbstractTextDocumentLayout>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextList>
#include <QTextTable>

namespace {

constexpr int mostCharacters = 20000; // a copy of more is no longer cheap

/// The format without the list, which only exists in the original; the list's own indent is kept.
QTextBlockFormat withoutList(const QTextBlock &block)
{
    QTextBlockFormat format = block.blockFormat();
    if (const QTextList *list = block.textList())
        format.setIndent(format.indent() + list->format().indent());
    format.setObjectIndex(-1);
    return format;
}

/// True when all objects in the text are pictures whose size the format gives, so that a copy needs not their
/// bytes.
bool areObjectsSized(const QTextBlock &block)
{
    if (!block.text().contains(QChar::ObjectReplacementCharacter))
        return true;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextImageFormat picture = it.fragment().charFormat().toImageFormat();
        const bool isSized = picture.isValid() && picture.width() > 0 && picture.height() > 0;
        if (!isSized && it.fragment().text().contains(QChar::ObjectReplacementCharacter))
            return false;
    }
    return true;
}

/// The first paragraph of a cell has the format of the cell, too.
void fill(const QTextBlock &empty, const QTextBlock &block)
{
    QTextCursor copy(empty);
    copy.setBlockFormat(withoutList(block));
    copy.setBlockCharFormat(block.charFormat());
    for (auto it = block.begin(); !it.atEnd(); ++it)
        copy.insertText(it.fragment().text(), it.fragment().charFormat());
}

/// Makes a cell of \a table as wide as \a cell of \a original, with as many paragraphs.
void buildCell(QTextTable &table, const QTextTableCell &cell, const QTextDocument &original)
{
    table.mergeCells(cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan());
    QTextCursor inside(table.document());
    inside.setPosition(table.cellAt(cell.row(), cell.column()).firstPosition());
    const int first = original.findBlock(cell.firstPosition()).blockNumber();
    const int last = original.findBlock(cell.lastPosition()).blockNumber();
    for (int i = first; i < last; ++i)
        inside.insertBlock();
}

/// Puts cells as those of \a table behind the paragraph of \a copy, which is then in the one behind them.
void buildCells(QTextCursor &copy, const QTextTable &table)
{
    QTextTable *built = copy.insertTable(table.rows(), table.columns(), table.format());
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() == row && cell.column() == column) // and not part of one that spans more
                buildCell(*built, cell, *table.document());
        }
    }
    copy.setPosition(built->lastPosition() + 1);
}

QTextTable *tableAt(const QTextDocument &document, const QTextBlock &block)
{
    return qobject_cast<QTextTable *>(document.frameAt(block.position()));
}

bool isOnPageOrInItsTable(const QTextBlock &block)
{
    const QTextFrame *page = block.document()->rootFrame();
    const QTextTable *table = tableAt(*block.document(), block);
    return (table ? table->parentFrame() : block.document()->frameAt(block.position())) == page;
}

} // namespace

LayoutSample::LayoutSample(const QTextBlock &first, const QTextBlock &last)
    : m_firstNumber(first.blockNumber())
{
    const QTextDocument &original = *first.document();
    m_document.setUndoRedoEnabled(false);
    m_document.setUseDesignMetrics(original.useDesignMetrics());
    m_document.setDefaultFont(original.defaultFont());
    m_document.setDefaultTextOption(original.defaultTextOption());
    m_document.setIndentWidth(original.indentWidth());
    buildParagraphs(first, last);
    fillParagraphs(first, last);
    m_document.rootFrame()->setFrameFormat(original.rootFrame()->frameFormat());
    m_document.documentLayout()->setPaintDevice(original.documentLayout()->paintDevice());
    m_document.setPageSize(original.pageSize());
}

void LayoutSample::buildParagraphs(const QTextBlock &first, const QTextBlock &last)
{
    const QTextDocument &original = *first.document();
    QTextCursor copy(&m_document);
    QTextBlock block = first;
    while (block != last) {
        block = block.next();
        if (const QTextTable *table = tableAt(original, block)) {
            buildCells(copy, *table);
            block = original.findBlock(table->lastPosition() + 1);
        } else {
            copy.insertBlock();
        }
    }
}

void LayoutSample::fillParagraphs(const QTextBlock &first, const QTextBlock &last)
{
    QTextBlock copy = m_document.begin();
    for (QTextBlock block = first; block != last; block = block.next()) {
        fill(copy, block);
        copy = copy.next();
    }
    fill(copy, last);
}

QTextBlock LayoutSample::copyOf(const QTextBlock &original) const
{
    return m_document.findBlockByNumber(original.blockNumber() - m_firstNumber);
}

QTextTable &LayoutSample::copyOf(const QTextTable &table) const
{
    return *tableAt(m_document, copyOf(table.document()->findBlock(table.firstPosition())));
}

bool LayoutSample::canHold(const QTextBlock &first, const QTextBlock &last)
{
    constexpr int mostParagraphs = 60;
    if (!first.isValid() || !last.isValid() || last.blockNumber() - first.blockNumber() > mostParagraphs ||
        last.position() + last.length() - first.position() > mostCharacters)
        return false;
    QTextBlock block = first;
    while (block != last && isSimple(block) && isOnPageOrInItsTable(block))
        block = block.next();
    return block == last && isSimple(last);
}

bool LayoutSample::isSimple(const QTextBlock &original)
{
    return original.isValid() && original.isVisible() && original.length() <= mostCharacters &&
           areObjectsSized(original) && original.layout()->preeditAreaText().isEmpty() &&
           original.layout()->formats().isEmpty();
}

bool LayoutSample::isSameLayout(const QTextBlock &one, const QTextBlock &other)
{
    const QTextLayout &a = *one.layout();
    const QTextLayout &b = *other.layout();
    if (a.lineCount() == 0 || a.lineCount() != b.lineCount() || a.position().x() != b.position().x())
        return false;
    for (int i = 0; i < a.lineCount(); ++i) {
        const QTextLine line = a.lineAt(i);
        const QTextLine otherLine = b.lineAt(i);
        if (line.textStart() != otherLine.textStart() || line.textLength() != otherLine.textLength() ||
            line.rect() != otherLine.rect())
            return false;
    }
    return true;
}

bool LayoutSample::apply(const QTextBlock &copy, const QTextBlock &original)
{
    const QTextLayout &from = *copy.layout();
    QTextLayout &to = *original.layout();
    to.setTextOption(from.textOption());
    to.beginLayout();
    for (int i = 0; i < from.lineCount(); ++i) {
        QTextLine line = to.createLine();
        if (!line.isValid())
            break;
        line.setLeadingIncluded(from.lineAt(i).leadingIncluded());
        line.setLineWidth(from.lineAt(i).width());
        line.setPosition(from.lineAt(i).position());
    }
    const bool isWhole = !to.createLine().isValid();
    to.endLayout();
    to.setPosition(from.position());
    return isWhole && isSameLayout(copy, original);
}
