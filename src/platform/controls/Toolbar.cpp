#include "Toolbar.h"

#include "EventGate.h"
#include "RuntimeError.h"
#include "ThemeIcon.h"

#include <QEvent>
#include <QMenu>
#include <QToolButton>

namespace {

[[noreturn]] void refuse(const QString &which)
{
    throw RuntimeError(ErrorNumber::ElementNotFound, {}, which);
}

void setPressedLook(QAction &action, bool pressed)
{
    action.setCheckable(pressed); // what is not pressed stays a plain button
    action.setChecked(pressed);
}

} // namespace

Toolbar::Toolbar(QWidget *parent)
    : QToolBar(parent)
{
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void Toolbar::setButtons(std::span<const ToolbarRow> rows)
{
    for (const ToolbarRow &row : rows)
        addRow(row);
    setIcons();
}

void Toolbar::addRow(const ToolbarRow &row)
{
    if (!row.key) {
        m_buttons.insert(row.position, addSeparator());
        return;
    }
    const QString toolTip = QString::fromLatin1(row.toolTip);
    QAction *action = addAction(toolTip);
    action->setToolTip(toolTip);
    m_buttons.insert(row.position, action);
    m_styles.insert(row.position, row.style);
    m_icons.insert(action, QString::fromLatin1(row.icon));
    auto &button = static_cast<QToolButton &>(*widgetForAction(action));
    button.setObjectName(QString::fromLatin1(row.key));
    button.setAccessibleName(toolTip);
    if (row.style == ToolbarRow::Style::DropDown)
        addList(button);
    on(action, &QAction::triggered, this, [this, position = row.position] { clicked(position); });
}

void Toolbar::addList(QToolButton &button)
{
    button.setPopupMode(QToolButton::MenuButtonPopup);
    button.setMenu(new QMenu(&button));
}

void Toolbar::setLists(std::span<const ToolbarMenuRow> rows)
{
    for (const ToolbarMenuRow &row : rows) {
        QMenu &list = *toolButton(QString::fromLatin1(row.button)).menu();
        if (!row.text) {
            list.addSeparator();
            continue;
        }
        const QString key = QString::fromLatin1(row.key);
        QAction *entry = list.addAction(QString::fromLatin1(row.text));
        entry->setObjectName(key);
        if (row.icon)
            m_icons.insert(entry, QString::fromLatin1(row.icon));
        on(entry, &QAction::triggered, this, [this, key] { Q_EMIT ButtonMenuClick(key); });
    }
    setIcons();
}

QAction &Toolbar::button(int position) const
{
    if (QAction *action = m_buttons.value(position))
        return *action;
    refuse(QString::number(position));
}

QAction &Toolbar::button(const QString &key) const
{
    for (QAction *action : m_buttons) {
        if (!action->isSeparator() && widgetForAction(action)->objectName() == key)
            return *action;
    }
    refuse(key);
}

QAction &Toolbar::listEntry(const QString &key) const
{
    for (const QMenu *list : findChildren<QMenu *>()) {
        if (auto *entry = list->findChild<QAction *>(key, Qt::FindDirectChildrenOnly))
            return *entry;
    }
    refuse(key);
}

QToolButton &Toolbar::toolButton(const QString &key) const
{
    return static_cast<QToolButton &>(*widgetForAction(&button(key)));
}

void Toolbar::setButtonsEnabled(int first, int last, bool enabled)
{
    for (auto button = m_buttons.lowerBound(first); button != m_buttons.end() && button.key() <= last;
         ++button)
        (*button)->setEnabled(enabled);
}

void Toolbar::setButtonsVisible(int first, int last, bool visible)
{
    for (auto button = m_buttons.lowerBound(first); button != m_buttons.end() && button.key() <= last;
         ++button)
        (*button)->setVisible(visible);
}

void Toolbar::setPressed(const QString &key, bool pressed)
{
    setPressedLook(button(key), pressed);
}

bool Toolbar::isPressed(const QString &key) const
{
    return button(key).isChecked();
}

void Toolbar::clicked(int position)
{
    QAction &action = button(position);
    if (isInGroup(position))
        pressInGroup(position);
    else if (action.isCheckable())
        action.setChecked(true); // the click itself has released it
    Q_EMIT ButtonClick(widgetForAction(&action)->objectName());
}

void Toolbar::pressInGroup(int position)
{
    int first = position;
    while (isInGroup(first - 1))
        --first;
    for (int other = first; isInGroup(other); ++other)
        setPressedLook(button(other), other == position);
}

bool Toolbar::isInGroup(int position) const
{
    return m_styles.value(position) == ToolbarRow::Style::Group;
}

void Toolbar::setIcons()
{
    for (auto [action, icon] : m_icons.asKeyValueRange())
        action->setIcon(ThemeIcon::named(icon));
}

void Toolbar::changeEvent(QEvent *event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ThemeChange)
        run([&] { setIcons(); });
}
