#include "Toolbar.h"

#include "EventGate.h"
#include "RuntimeError.h"
#include "ThemeIcon.h"

#include <QEvent>

namespace {

const int noSuchElement = 35601;

[[noreturn]] void refuse(const QString &which)
{
    throw RuntimeError(noSuchElement, QStringLiteral("Element not found"), which);
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
    const QString key = QString::fromLatin1(row.key);
    const QString toolTip = QString::fromLatin1(row.toolTip);
    QAction *action = addAction(toolTip);
    action->setToolTip(toolTip);
    m_buttons.insert(row.position, action);
    m_icons.insert(action, QString::fromLatin1(row.icon));
    QWidget *button = widgetForAction(action);
    button->setObjectName(key);
    button->setAccessibleName(toolTip);
    on(action, &QAction::triggered, this, [this, key] { Q_EMIT ButtonClick(key); });
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
