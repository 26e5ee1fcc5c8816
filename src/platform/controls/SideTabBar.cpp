#include "SideTabBar.h"

#include "EventGate.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace {

constexpr int indent = 8;    // pixels, on both sides of a caption
constexpr int markWidth = 3; // pixels, of what shows which tab is in front

} // namespace

SideTabBar::SideTabBar(QWidget *parent)
    : QTabBar(parent)
{
    setShape(RoundedWest);
}

/// Qt lays the tabs of a column out for captions that are turned.
QSize SideTabBar::tabSizeHint(int index) const
{
    const QSize caption = fontMetrics().size(Qt::TextShowMnemonic, tabText(index));
    return {caption.width() + 3 * indent, QTabBar::tabSizeHint(index).width()};
}

QSize SideTabBar::minimumTabSizeHint(int index) const
{
    return tabSizeHint(index);
}

/// Qt knows the keys of a row alone.
void SideTabBar::keyPressEvent(QKeyEvent *event)
{
    run([&] {
        const bool isUp = event->key() == Qt::Key_Up;
        if (!isUp && event->key() != Qt::Key_Down) {
            QTabBar::keyPressEvent(event);
            return;
        }
        const Qt::Key key = isUp != isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
        QKeyEvent inRow(event->type(), key, event->modifiers());
        QTabBar::keyPressEvent(&inRow);
    });
}

void SideTabBar::paintEvent(QPaintEvent *)
{
    runPainting([&] {
        QPainter painter(this);
        for (int i = 0; i < count(); ++i) {
            if (i != currentIndex() && isTabVisible(i))
                paintTab(painter, i);
        }
        if (currentIndex() >= 0)
            paintTab(painter, currentIndex()); // above its neighbours
    });
}

void SideTabBar::paintTab(QPainter &painter, int index) const
{
    QStyleOptionTab tab;
    initStyleOption(&tab, index);
    style()->drawControl(QStyle::CE_TabBarTabShape, &tab, &painter, this);
    if (index == currentIndex())
        painter.fillRect(QRect(tab.rect.topLeft(), QSize(markWidth, tab.rect.height())),
                         tab.palette.highlight());
    const QRect text = tab.rect.adjusted(indent, 0, -indent, 0);
    style()->drawItemText(&painter, text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                          tab.palette, isTabEnabled(index), tab.text, QPalette::WindowText);
    if (!(tab.state & QStyle::State_HasFocus) || index != currentIndex())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = tab.rect.adjusted(3, 3, -3, -3);
    focus.backgroundColor = tab.palette.window().color();
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}
