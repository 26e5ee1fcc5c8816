#include "WindowCaptions.h"

#include "Named.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QToolButton>

namespace {

QString plain(const QString &caption)
{
    return withoutMnemonic(caption).trimmed();
}

} // namespace

WindowCaptions::WindowCaptions(const QWidget &window)
{
    add(window.windowTitle());
    for (const QWidget *part : window.findChildren<QWidget *>()) {
        addTexts(*part);
        addChoices(*part);
    }
    for (const QAction *action : window.findChildren<QAction *>()) {
        add(action->text());
        add(action->toolTip());
    }
    for (const QMenu *menu : window.findChildren<QMenu *>())
        addMenu(plain(menu->title()), *menu);
    for (const QToolButton *button : window.findChildren<QToolButton *>()) {
        if (button->menu())
            addMenu(plain(button->toolTip()), *button->menu());
    }
}

bool WindowCaptions::has(const QString &name) const
{
    return m_captions.contains(name);
}

void WindowCaptions::unite(const WindowCaptions &other)
{
    m_captions.unite(other.m_captions);
}

void WindowCaptions::add(const QString &caption)
{
    if (!plain(caption).isEmpty())
        m_captions.insert(plain(caption));
}

void WindowCaptions::addTexts(const QWidget &part)
{
    add(part.toolTip());
    if (const auto *button = qobject_cast<const QAbstractButton *>(&part))
        add(button->text());
    else if (const auto *label = qobject_cast<const QLabel *>(&part))
        add(label->text());
    else if (const auto *box = qobject_cast<const QGroupBox *>(&part))
        add(box->title());
}

void WindowCaptions::addChoices(const QWidget &part)
{
    if (const auto *tabs = qobject_cast<const QTabBar *>(&part)) {
        for (int i = 0; i < tabs->count(); ++i)
            add(tabs->tabText(i));
    } else if (const auto *choices = qobject_cast<const QComboBox *>(&part)) {
        for (int i = 0; i < choices->count(); ++i)
            add(choices->itemText(i));
    } else if (const auto *view = qobject_cast<const QAbstractItemView *>(&part); view && view->model()) {
        for (int i = 0; i < view->model()->columnCount(); ++i)
            add(view->model()->headerData(i, Qt::Horizontal).toString());
        for (int i = 0; i < view->model()->rowCount(); ++i)
            add(view->model()->index(i, 0).data().toString());
    }
}

void WindowCaptions::addMenu(const QString &path, const QMenu &menu)
{
    for (const QAction *item : menu.actions()) {
        if (!item->isVisible() || item->isSeparator())
            continue;
        const QString itemPath = path + QStringLiteral(" > ") + plain(item->text());
        add(itemPath);
        if (item->menu())
            addMenu(itemPath, *item->menu());
    }
}
