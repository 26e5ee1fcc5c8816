#pragma once

#include <QRectF>
#include <optional>

class QPoint;
class QTextEdit;
class ViewZoom;

/// The frame around a picture that is selected alone, whose corners resize it. A click on a picture that is
/// no link selects it.
class PictureHandles
{
public:
    PictureHandles(QTextEdit &view, const ViewZoom &zoom);

    /// The left button's press, its moves and its release, in the view. A press that is true was for the
    /// picture. While a corner is dragged the proportions stay; a picture is not wider than its line on a
    /// page whose text is \a page pixels wide. The release resizes it, as one undo step.
    bool press(const QPoint &point);
    void move(const QPoint &point, double page);
    void release();
    bool isDragging() const { return m_drag.has_value(); }

    /// Shows above a corner that it can be dragged.
    void hover(const QPoint &point) const;

    /// To be called when the selection has changed.
    void followSelection();

    /// Paints over the text of the view.
    void paint() const;

    /// To be called when the document changes or is enlarged, and before the view shows another one.
    void forget();

private:
    struct Picture
    {
        int position = 0; ///< in the document
        QRectF area;      ///< in the view
    };
    struct Drag
    {
        Picture picture;
        QPointF fixed; ///< the corner opposite to the one that is dragged
        QSizeF size;   ///< of the picture when it is released now
        QPointF originAtPress;
    };

    QPointF viewOrigin() const; ///< in the document
    QPointF scrolledInDrag() const;

    std::optional<Picture> pictureAt(int position) const;
    std::optional<Picture> pictureAt(const QPoint &point) const;
    std::optional<int> selectedPosition() const;
    std::optional<Picture> selected() const;
    std::optional<Qt::Corner> cornerAt(const QPoint &point) const;

    QTextEdit &m_view;
    const ViewZoom &m_zoom;
    std::optional<Drag> m_drag;
    bool m_isShown = false; ///< since the selection last changed
};
