#include "IconButton.h"

#include "Named.h"
#include "WindowIcons.h"

#include <QPushButton>

QPushButton *iconButton(WindowIcons &icons, const char *name, const QString &toolTip, const QString &icon)
{
    constexpr int size = 22; // pixels
    auto *button = named<QPushButton>(name, QString(), toolTip);
    button->setToolTip(toolTip);
    button->setIconSize({size, size});
    icons.add(*button, icon);
    return button;
}
