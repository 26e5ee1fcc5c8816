#pragma once

#include <QMdiArea>

/// The child area of a frame, with the four arrangements of its children.
class MdiArea : public QMdiArea
{
    Q_OBJECT

public:
    enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

    explicit MdiArea(QWidget *parent = nullptr);

    /// Gives \a child a window of its own, a step right and down of the one before. It is not shown yet. The
    /// window has the child's preferred size, or two thirds of this area where that is more and the child's
    /// size policy is to expand; it is never larger than the area, but has always room for its controls. When
    /// it is closed, it and its child are deleted once no handler runs any more.
    void adopt(QWidget &child);
    /// Shows the window of \a child, restores it where it is minimised, and makes it the active one.
    void bringForward(QWidget &child);

    /// The child on show that is active, or would be if the frame were, whatever dialog is in front; nullptr
    /// where none is on show.
    QMdiSubWindow *activeChild() const;

    /// Lays out the children that are not minimised (ArrangeIcons: leaves them) and rows the minimised ones
    /// along the bottom edge. A maximised child is restored by the first three.
    void arrange(Arrangement arrangement);

    /// The children in order of creation.
    QList<QMdiSubWindow *> childWindows() const { return subWindowList(CreationOrder); }

Q_SIGNALS:
    /// activeChild() may be another one. Also when the last child on show is closed while another is loaded
    /// and not shown, of which Qt's own signal says nothing.
    void activeChildChanged();

protected:
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void layOutFrame();
    QList<QMdiSubWindow *> openChildren() const;
    QRect spaceForOpenChildren() const;
    void cascade();
    void tile(Qt::Orientation direction);
    void arrangeIcons();
    int cascadeStep() const;
    void setBackgroundFromPalette();

    int m_placed = 0; ///< children placed so far
};
