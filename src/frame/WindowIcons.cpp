#include "WindowIcons.h"

#include "EventGate.h"

#include <QEvent>
#include <QWidget>

WindowIcons::WindowIcons(QWidget &window)
    : QObject(&window)
{
    window.installEventFilter(this);
}

bool WindowIcons::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange) {
        run([&] {
            for (const std::function<void()> &load : std::as_const(m_icons))
                load();
        });
    }
    return QObject::eventFilter(watched, event);
}
