#pragma once

#include <QMdiArea>

/// The child area of a frame, with the four arrangements of its children.
class MdiArea : public QMdiArea
{
public:
    enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

    explicit MdiArea(QWidget *parent = nullptr);

    /// Puts \a child into a window of its own, a step right and down of the one before, or finds the window
    /// that it has, and makes that the active one. The window has the child's preferred size, or two thirds
    /// of this area where that is more and the child's size policy is to expand; it is never larger than the
    /// area. It is deleted with its child when it is closed.
    void place(QWidget &child);

    /// Lays out the children that are not minimised (ArrangeIcons: leaves them) and rows the minimised ones
    /// along the bottom edge. A maximised child is restored by the first three.
    void arrange(Arrangement arrangement);

    /// The children in order of creation.
    QList<QMdiSubWindow *> childWindows() const { return subWindowList(CreationOrder); }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QMdiSubWindow *addWindowFor(QWidget &child);
    void layOutFrame();
    QList<QMdiSubWindow *> openChildren() const;
    QRect roomForOpenChildren() const;
    void cascade();
    void tile(Qt::Orientation direction);
    void arrangeIcons();
    int cascadeStep() const;
    void setBackgroundFromPalette();

    int m_placed = 0; ///< children placed so far
};
