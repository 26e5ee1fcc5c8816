#include "MenuIcons.h"

#include "EventGate.h"
#include "ThemeIcon.h"

#include <QAction>
#include <QEvent>
#include <QWidget>

MenuIcons::MenuIcons(QWidget &window)
    : QObject(&window)
{
    window.installEventFilter(this);
}

void MenuIcons::add(QAction &item, const QString &icon)
{
    m_icons.insert(&item, icon);
    item.setIcon(ThemeIcon::named(icon));
}

bool MenuIcons::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange) {
        run([&] {
            for (auto [item, icon] : m_icons.asKeyValueRange())
                item->setIcon(ThemeIcon::named(icon));
        });
    }
    return QObject::eventFilter(watched, event);
}
