#include "NumberBox.h"

#include "EventGate.h"

#include <QKeyEvent>
#include <algorithm>

namespace {

/// Return and Escape are the window's; Delete is no character, although it has one.
bool isTyped(const QKeyEvent &event)
{
    constexpr int keys[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};
    return !event.text().isEmpty() &&
           std::find(std::begin(keys), std::end(keys), event.key()) == std::end(keys);
}

bool isAllowed(const QString &text)
{
    return text == QLatin1String(".") || (text >= QLatin1String("0") && text <= QLatin1String("9"));
}

} // namespace

NumberBox::NumberBox()
{
    setAttribute(Qt::WA_InputMethodEnabled, false); // its texts would pass the filter of the keys
}

void NumberBox::keyPressEvent(QKeyEvent *event)
{
    bool isDropped = false;
    run([&] { isDropped = isTyped(*event) && !isAllowed(event->text()); });
    if (!isDropped)
        QLineEdit::keyPressEvent(event);
}
