#include "WindowList.h"

#include "EventGate.h"
#include "MdiArea.h"
#include "ShownText.h"

#include <QMdiSubWindow>
#include <QMenu>

namespace {

const QString listed = QStringLiteral("WindowList");

/// A long path is cut in the middle, so that the menu is not as wide as the screen.
QString captionOf(const QMdiSubWindow &child, int number, const QFontMetrics &font)
{
    constexpr int longest = 60; // characters of average width
    QString caption = font.elidedText(ShownText::line(child.widget()->windowTitle()), Qt::ElideMiddle,
                                      longest * font.averageCharWidth());
    caption.replace(u'&', QLatin1String("&&"));
    constexpr int lastMnemonic = 9;
    return QStringLiteral("%1%2 %3")
        .arg(number <= lastMnemonic ? QStringLiteral("&") : QString())
        .arg(number)
        .arg(caption);
}

void activate(MdiArea &area, QMdiSubWindow &child)
{
    if (child.isMinimized())
        child.showNormal();
    area.setActiveSubWindow(&child);
}

} // namespace

void WindowList::fill(QMenu &menu, MdiArea &area)
{
    for (QAction *old : menu.actions()) {
        if (old->objectName() == listed)
            delete old;
    }
    int number = 0;
    for (QMdiSubWindow *child : area.childWindows()) {
        if (child->isHidden())
            continue;
        if (number == 0)
            menu.addSeparator()->setObjectName(listed);
        QAction *item = menu.addAction(captionOf(*child, ++number, menu.fontMetrics()));
        item->setObjectName(listed);
        item->setCheckable(child == area.activeChild()); // no empty box before the others
        item->setChecked(true);
        on(item, &QAction::triggered, child, [&area, child] { activate(area, *child); });
    }
}
