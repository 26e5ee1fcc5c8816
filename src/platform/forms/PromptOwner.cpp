#include "PromptOwner.h"

#include "Forms.h"

#include <QApplication>
#include <algorithm>

namespace {

bool isOnScreen(const Form *form)
{
    // A box that belongs to a minimised window would be hidden with it.
    return form->isVisible() && !form->window()->isMinimized();
}

QWidget *newestOnScreen()
{
    const auto &forms = Forms::loaded();
    const auto newest = std::find_if(forms.crbegin(), forms.crend(), isOnScreen);
    return newest == forms.crend() ? nullptr : (*newest)->window();
}

} // namespace

QWidget *promptOwner()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    QWidget *active = QApplication::activeWindow();
    return active ? active : newestOnScreen();
}
