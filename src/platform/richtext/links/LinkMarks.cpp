#include "LinkMarks.h"

#include "LongDocuments.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextEdit>

namespace {

QTextCharFormat lookIn(const QTextEdit &view)
{
    QTextCharFormat look;
    look.setForeground(view.palette().link());
    look.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    return look;
}

QTextEdit::ExtraSelection mark(const QTextEdit &view, const LinkFinder::Link &link)
{
    QTextEdit::ExtraSelection mark;
    mark.cursor = view.textCursor();
    mark.cursor.setPosition(link.first);
    mark.cursor.setPosition(link.end, QTextCursor::KeepAnchor);
    mark.format = lookIn(view);
    return mark;
}

/// The marks themselves are asked, as an edit may have moved or emptied them.
bool areMarked(const QTextEdit &view, const QList<LinkFinder::Link> &links)
{
    const QList<QTextEdit::ExtraSelection> marks = view.extraSelections();
    return std::equal(links.cbegin(), links.cend(), marks.cbegin(), marks.cend(),
                      [](const LinkFinder::Link &link, const QTextEdit::ExtraSelection &mark) {
                          return mark.cursor.selectionStart() == link.first &&
                                 mark.cursor.selectionEnd() == link.end;
                      });
}

} // namespace

LinkMarks::LinkMarks(QTextEdit &view, const LongDocuments &documents)
    : m_view(view)
    , m_documents(documents)
{}

void LinkMarks::setOn(bool on)
{
    m_on = on;
    m_view.viewport()->update();
}

std::optional<QTextCharFormat> LinkMarks::look() const
{
    return m_on ? std::optional(lookIn(m_view)) : std::nullopt;
}

void LinkMarks::markVisible()
{
    const QList<LinkFinder::Link> links = m_on ? visibleLinks() : QList<LinkFinder::Link>();
    if (areMarked(m_view, links))
        return;
    QList<QTextEdit::ExtraSelection> marks;
    for (const LinkFinder::Link &link : links)
        marks.append(mark(m_view, link));
    m_view.setExtraSelections(marks);
}

void LinkMarks::forget()
{
    m_pressed.reset();
    m_view.setExtraSelections({});
}

void LinkMarks::press(const QPoint &point)
{
    m_pressed = linkAt(point);
}

std::optional<LinkFinder::Link> LinkMarks::release(const QPoint &point)
{
    const std::optional<LinkFinder::Link> pressed = std::exchange(m_pressed, std::nullopt);
    if (!pressed || pressed != linkAt(point) || m_view.textCursor().hasSelection())
        return std::nullopt;
    return pressed;
}

void LinkMarks::hover(const QPoint &point)
{
    m_view.viewport()->setCursor(linkAt(point) ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

std::optional<LinkFinder::Link> LinkMarks::linkAt(const QPoint &point) const
{
    if (!m_on)
        return std::nullopt;
    const QPoint scrolled(m_view.horizontalScrollBar()->value(), m_view.verticalScrollBar()->value());
    const QTextDocument &document = *m_view.document();
    const int position = document.documentLayout()->hitTest(point + scrolled, Qt::ExactHit);
    return position < 0 ? std::nullopt : LinkFinder::at(document, position);
}

QList<LinkFinder::Link> LinkMarks::visibleLinks() const
{
    const auto [first, end] = m_documents.stretchInView();
    return LinkFinder::between(*m_view.document(), first, end);
}
