#include "PromptOwner.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

QWidget *promptOwner()
{
    // Between one box and the next no window is active, until the window system says which one it is.
    static QPointer<QWidget> last;
    QWidget *modal = QApplication::activeModalWidget();
    if (QWidget *active = modal ? modal : QApplication::activeWindow())
        last = active;
    while (last && !last->isVisible())
        last = last->parentWidget() ? last->parentWidget()->window() : nullptr;
    return last;
}
