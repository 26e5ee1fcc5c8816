#pragma once

#include <QHash>
#include <QObject>

class QAction;
class QWidget;

/// The icons of a window's menu items. They are loaded again when the window's palette changes between light
/// and dark.
class MenuIcons : public QObject
{
public:
    /// Is owned by \a window.
    explicit MenuIcons(QWidget &window);

    /// \a item lives as long as the window. \a icon is a freedesktop name.
    void add(QAction &item, const QString &icon);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QHash<QAction *, QString> m_icons;
};
