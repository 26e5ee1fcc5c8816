#include "LayoutSample.h"

#include <QAbstractTextDocumentLayout>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextList>

namespace {

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

void fill(QTextCursor &copy, const QTextBlock &block)
{
    copy.setBlockFormat(withoutList(block));
    copy.setBlockCharFormat(block.charFormat());
    for (auto it = block.begin(); !it.atEnd(); ++it)
        copy.insertText(it.fragment().text(), it.fragment().charFormat());
}

} // namespace

LayoutSample::LayoutSample(const QTextBlock &first, const QTextBlock &last)
{
    const QTextDocument &original = *first.document();
    m_document.setUndoRedoEnabled(false);
    m_document.setUseDesignMetrics(original.useDesignMetrics());
    m_document.setDefaultFont(original.defaultFont());
    m_document.setDefaultTextOption(original.defaultTextOption());
    m_document.setIndentWidth(original.indentWidth());
    QTextCursor copy(&m_document);
    for (QTextBlock block = first; block != last; block = block.next()) {
        fill(copy, block);
        copy.insertBlock();
    }
    fill(copy, last);
    m_document.rootFrame()->setFrameFormat(original.rootFrame()->frameFormat());
    m_document.documentLayout()->setPaintDevice(original.documentLayout()->paintDevice());
    m_document.setPageSize(original.pageSize());
}

bool LayoutSample::isSimple(const QTextBlock &original)
{
    constexpr int longest = 10000; // a copy of more is no longer cheap
    return original.isValid() && original.isVisible() && original.length() <= longest &&
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
