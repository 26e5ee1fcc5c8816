#include "ListCommands.h"

#include "RuntimeError.h"

#include <QAction>
#include <QToolButton>

namespace {

constexpr const char *recordCommands[] = {
    "deleteselected",   "mnudelete", "mnuprintselected", "prtselected",
    "mnuselectrecords", "selectall", "deselectall",
};
constexpr const char *summaryCommands[] = {"mnusummary", "prtsummary"};

/// A toolbar's button has an action of its own, under the button's name.
QAction *actionNamed(const QWidget &window, const QString &name)
{
    if (auto *item = window.findChild<QAction *>(name))
        return item;
    if (const auto *button = window.findChild<QToolButton *>(name); button && button->defaultAction())
        return button->defaultAction();
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, name);
}

template<std::size_t Count>
QList<QAction *> actionsNamed(const QWidget &window, const char *const (&names)[Count])
{
    QList<QAction *> actions;
    for (const char *name : names)
        actions.append(actionNamed(window, QString::fromLatin1(name)));
    return actions;
}

} // namespace

ListCommands::ListCommands(const QWidget &window)
    : m_records(actionsNamed(window, recordCommands))
    , m_summary(actionsNamed(window, summaryCommands))
    , m_delete(window.findChild<QAbstractButton *>(QStringLiteral("cmddeleteselected")))
{
    if (!m_delete)
        throw RuntimeError(ErrorNumber::NoSuchMember, {}, QStringLiteral("cmddeleteselected"));
}

void ListCommands::setRecordsEnabled(bool enabled) const
{
    for (QAction *action : m_records)
        action->setEnabled(enabled);
    m_delete->setEnabled(enabled);
}

void ListCommands::setSummaryEnabled(bool enabled) const
{
    for (QAction *action : m_summary)
        action->setEnabled(enabled);
}
