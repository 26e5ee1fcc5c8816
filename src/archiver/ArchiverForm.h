#pragma once

#include "ArchiveJob.h"
#include "ChildForm.h"

#include <span>

class QPushButton;
class QVBoxLayout;
class StatusBar;
class WindowIcons;
struct StatusBarRow;
struct ToolMenuRow;

/// What the archiver's windows have in common: menus, a column of controls above a status bar, buttons with
/// icons, and a job at a time. What is in the column is up to each window.
class ArchiverForm : public ChildForm
{
    Q_OBJECT

public:
    QList<QMenu *> menus() const override { return m_menus; }
    QSize sizeHint() const override;

protected:
    /// The commands are those that wait for the end of a job. The window is \a firstSize pixels large at
    /// first, where the child area has so much room.
    ArchiverForm(const QString &name, const QSize &firstSize, const QStringList &jobCommands);

    /// The items named in \a marked can be ticked.
    void buildMenus(std::span<const ToolMenuRow> rows, const QStringList &marked);
    QPushButton *button(const char *name, const QString &caption, const QString &icon);
    /// Returns the column, which is still empty.
    QVBoxLayout *layOut(std::span<const StatusBarRow> panels);

    StatusBar *sbrMain = nullptr;
    ArchiveJob m_job;

private:
    QSize m_firstSize;
    WindowIcons *m_icons;
    QList<QMenu *> m_menus;
};
