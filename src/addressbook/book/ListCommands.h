#pragma once

#include <QList>

class QAbstractButton;
class QAction;
class QWidget;

/// The commands of the address book that depend on what its list shows, in two sets: those on the records of
/// the list, and the printed summary.
class ListCommands
{
public:
    /// Finds the menu items, the buttons and the toolbar's keys in \a window, which has them already. Throws
    /// RuntimeError 438 where one is missing.
    explicit ListCommands(const QWidget &window);

    void setRecordsEnabled(bool enabled) const;
    void setSummaryEnabled(bool enabled) const;

private:
    QList<QAction *> m_records;
    QList<QAction *> m_summary;
    QAbstractButton *m_delete;
};
