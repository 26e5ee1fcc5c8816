#pragma once

#include <QMdiArea>

/// The child area of a frame, with the four arrangements of its children.
class MdiArea : public QMdiArea
{
public:
    enum class Arrangement { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

    explicit MdiArea(QWidget *parent = nullptr);

    /// Lays out the children that are not minimised (ArrangeIcons: leaves them) and rows the minimised ones
    /// along the bottom edge. A maximised child is restored by the first three.
    void arrange(Arrangement arrangement);

    /// The children in order of creation.
    QList<QMdiSubWindow *> childWindows() const { return subWindowList(CreationOrder); }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QList<QMdiSubWindow *> openChildren() const;
    QRect roomForOpenChildren() const;
    void cascade();
    void tile(Qt::Orientation direction);
    void arrangeIcons();
    void setBackgroundFromPalette();
};
