#include "PromptOwner.h"

#include "Forms.h"

#include <QApplication>
#include <QMainWindow>
#include <algorithm>

namespace {

bool isOnScreen(const QWidget *widget)
{
    // A box that belongs to a minimised window would be hidden with it.
    return widget->isVisible() && !widget->window()->isMinimized();
}

QWidget *newestForm()
{
    const auto &forms = Forms::loaded();
    const auto newest = std::find_if(forms.crbegin(), forms.crend(), isOnScreen);
    return newest == forms.crend() ? nullptr : (*newest)->window();
}

QWidget *mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget *window) {
        return qobject_cast<const QMainWindow *>(window) && isOnScreen(window);
    });
    return found == windows.cend() ? nullptr : *found;
}

} // namespace

QWidget *promptOwner()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    QWidget *form = newestForm();
    return form ? form : mainWindow();
}
