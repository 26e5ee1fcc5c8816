#pragma once

#include "ThemeIcon.h"

#include <QList>
#include <QObject>
#include <functional>

class QWidget;

/// The icons of a window's menu items and buttons. They are loaded again when the window's palette changes
/// between light and dark.
class WindowIcons : public QObject
{
public:
    /// Is owned by \a window.
    explicit WindowIcons(QWidget &window);

    /// \a item lives as long as the window. \a icon is a freedesktop name.
    template<class Item>
    void add(Item &item, const QString &icon);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<std::function<void()>> m_icons; ///< each loads one icon
};

template<class Item>
void WindowIcons::add(Item &item, const QString &icon)
{
    m_icons.append([&item, icon] { item.setIcon(ThemeIcon::named(icon)); });
    m_icons.last()();
}
