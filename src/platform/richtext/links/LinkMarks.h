#pragma once

#include "LinkFinder.h"
#include "ViewMarks.h"

class LongDocuments;
class QPoint;

/// Shows the links of a text: their look, the pointer above them, and which one was clicked.
///
/// Only what is in view is looked at, and the look is laid over the text when it is painted. So neither the
/// document nor its layout changes, and a document's length costs nothing.
class LinkMarks
{
public:
    /// \a documents takes care of those that \a view shows.
    LinkMarks(QTextEdit &view, const LongDocuments &documents);

    void setOn(bool on);

    /// What is laid over a link's own format; none while links are not marked.
    std::optional<QTextCharFormat> look() const;

    /// The marks of the links in view.
    QList<ViewMarks::Mark> visible() const;

    /// To be called before the view shows another document.
    void forget();

    /// The mouse in the view: the left button's press and release, and a move. A release gives the link that
    /// was pressed too, unless text was selected on the way.
    void press(const QPoint &point);
    std::optional<LinkFinder::Link> release(const QPoint &point);
    void hover(const QPoint &point);

private:
    std::optional<LinkFinder::Link> linkAt(const QPoint &point) const;
    /// The links of a stretch of the document as it was at a revision.
    struct Known
    {
        int revision = 0;
        std::pair<int, int> stretch;
        QList<LinkFinder::Link> links;
    };

    const QList<LinkFinder::Link> &inView() const;

    QTextEdit &m_view;
    const LongDocuments &m_documents;
    mutable std::optional<Known> m_known; ///< a view is painted more often than it changes
    bool m_on = false;
    std::optional<LinkFinder::Link> m_pressed;
};
