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

QList<ViewMarks::Mark> LinkMarks::visible() const
{
    QList<ViewMarks::Mark> marks;
    if (!m_on)
        return marks;
    for (const LinkFinder::Link &link : inView())
        marks.append(ViewMarks::mark(m_view, link.first, link.end, lookIn(m_view)));
    return marks;
}

void LinkMarks::forget()
{
    m_pressed.reset();
    m_known.reset();
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

const QList<LinkFinder::Link> &LinkMarks::inView() const
{
    const QTextDocument &document = *m_view.document();
    const std::pair<int, int> stretch = m_documents.stretchInView();
    if (!m_known || m_known->revision != document.revision() || m_known->stretch != stretch)
        m_known =
            Known{document.revision(), stretch, LinkFinder::between(document, stretch.first, stretch.second)};
    return m_known->links;
}
