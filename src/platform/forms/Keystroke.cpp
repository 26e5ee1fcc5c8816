#include "Keystroke.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

void Keystroke::sendControl(Qt::Key key)
{
    QWidget *focus = QApplication::focusWidget();
    if (!focus)
        return;
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(focus, new QKeyEvent(type, key, Qt::ControlModifier));
}
