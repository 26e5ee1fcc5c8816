#pragma once

#include <QTextBlock>
#include <QTimer>
#include <optional>
#include <private/qtextdocumentlayout_p.h>
#include <utility>

class LayoutSample;
class QTextEdit;
class QTextTable;

/// The layout of a document that is typed in, quick in long documents, too.
///
/// With each key Qt's layout visits every paragraph below, which takes far too long where a hundred thousand
/// follow. So a small edit in view is laid out here, down to the end of the view, and Qt's layout catches up
/// when the typing pauses, or before anything asks about the rest. What is laid out here is taken from Qt's
/// own layout of a copy of the few paragraphs and tables around the edit. Where that is not sure to be right
/// Qt lays out everything at once.
class TypingLayout : public QTextDocumentLayout
{
public:
    /// \a view is the one that shows the document.
    TypingLayout(QTextDocument &document, QTextEdit &view);

    /// True while paragraphs below the view are not in their place.
    bool isBehind() const { return m_pending.has_value(); }

    /// Brings everything to its place; costs nothing when it is there already.
    void catchUp();

    /// Positions between which all text in view is, and perhaps some more around it.
    std::pair<int, int> stretchInView() const;

    void draw(QPainter *painter, const PaintContext &context) override;
    int hitTest(const QPointF &point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override;
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame *frame) const override;
    QRectF blockBoundingRect(const QTextBlock &block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;
    void timerEvent(QTimerEvent *event) override;

private:
    /// Edits that Qt's layout has not seen. Positions are those of the text as it is now.
    struct PendingEdits
    {
        int from = 0; ///< the text that was edited
        int end = 0;
        int grown = 0;            ///< characters that came, less those that went
        int validUntil = 0;       ///< paragraphs from here on are still where they were before
        double heightDelta = 0;   ///< pixels that those have yet to move down
        double visibleBottom = 0; ///< everything above this height is in its place
    };

    bool canTake(int from, int removed, int added) const;
    void layOutAtOnce(int from, int removed, int added);
    void layOutBelow(int from, int removed, int added);
    void note(int from, int removed, int added);
    bool layOut(int from, int added);
    bool apply(const LayoutSample &sample, const QTextBlock &first, const QTextBlock &behind,
               double distance);
    bool takeOver(QTextTable &copy, QTextTable &table, double distance);
    bool layOutUnmoved(int from, int removed, int added);
    bool isFixedCell(QTextTable &table, int position) const;
    double widthOfAll() const;
    double scaledMargin() const;
    bool mayHaveBeenWidest(const QTextBlock &first, const QTextBlock &behind) const;
    double placeOf(const QTextBlock &block) const;
    bool moveBelow(const QTextBlock &behind, double y);
    void showChange(const QTextBlock &behind, double shift);
    QTextBlock paragraphOf(int position) const;
    QTextBlock lastUntouched() const;
    double editedTop() const;
    QTextBlock paragraphAt(double y) const;
    std::pair<int, int> stretchAt(double y) const;
    void settle() const;
    bool areEditsNearView() const;
    bool isNearView(const QTextBlock &block) const;
    double viewTop() const;
    double viewHeight() const;

    QTextEdit &m_view;
    int m_paragraphs = 0; ///< when the layout last heard of an edit
    std::optional<PendingEdits> m_pending;
    QTimer m_pause;
};
