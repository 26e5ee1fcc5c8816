#include "WindowCommands.h"

#include "ControlName.h"
#include "EventGate.h"
#include "RuntimeError.h"
#include "Toolbar.h"

#include <QAbstractButton>
#include <QAction>

namespace {

[[noreturn]] void refuse(const char *name)
{
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, QString::fromLatin1(name));
}

/// A toolbar button is bound through the signal of its toolbar, which gives the key that was clicked.
void bindKey(Toolbar &toolbar, const QString &key, QWidget &window, const std::function<void()> &run)
{
    on(&toolbar, &Toolbar::ButtonClick, &window, [key, run](const QString &clicked) {
        if (clicked == key)
            run();
    });
}

} // namespace

void WindowCommands::bindCommand(QWidget &window, const char *name, const std::function<void()> &run)
{
    const QString wanted = QString::fromLatin1(name);
    const auto items = window.findChildren<QAction *>(wanted);
    const auto buttons = window.findChildren<QAbstractButton *>(wanted);
    for (QAction *item : items)
        on(item, &QAction::triggered, &window, [run] { run(); });
    for (QAbstractButton *button : buttons) {
        if (auto *toolbar = qobject_cast<Toolbar *>(button->parentWidget()))
            bindKey(*toolbar, wanted, window, run);
        else
            on(button, &QAbstractButton::clicked, &window, [run] { run(); });
    }
    if (items.isEmpty() && buttons.isEmpty())
        refuse(name);
}

void WindowCommands::bindArray(QWidget &window, const char *array, const std::function<void(int index)> &run)
{
    int index = 0;
    for (; auto *button = window.findChild<QAbstractButton *>(ControlName(array, index).text()); ++index)
        on(button, &QAbstractButton::clicked, &window, [run, index] { run(index); });
    if (index == 0)
        refuse(array);
}
