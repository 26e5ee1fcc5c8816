#pragma once

#include "CommonDialog.h"
#include "FileCommands.h"
#include "FormatCommands.h"
#include "FramePosition.h"
#include "MainFrame.h"
#include "PrintCommands.h"

#include <QHash>
#include <QMainWindow>

class ChildMenus;
class MdiArea;
class QAction;
class QMenu;
class QTimer;
class StatusBar;

/// The one frame of the suite: it owns menus, toolbar, status bar and child area, numbers the documents and
/// keeps the commands on show in line with what is open. Its menus and buttons are FrameMenus and
/// FrameButtons, what they run is FrameCommands.
class frmMain : public QMainWindow, public MainFrame
{
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

    /// Restores the stored position and opens the first document. Throws RuntimeError 13 for a stored
    /// position that is no number.
    void load();
    /// Opens the recovery copies of an earlier run and says so in the status bar. Called once the frame is
    /// shown, since the windows are placed in its child area.
    void openRecovered();
    /// Closes every child first, which may ask questions; then stores the position and ends the program.
    void unload();

    void LoadNewDoc() override;
    void checkForDocument() override;
    void mnuFileExit_Click() override;
    void Arrange(MdiArea::Arrangement kind) override;
    Form *ActiveForm() const override;
    Toolbar &tbToolBar() const override { return *m_toolBar; }
    void SaveCurrentDocument() override { m_files.SaveCurrentDocument(); }
    void adopt(ChildForm &child) override;
    void bringForward(ChildForm &child) override;
    void fillWindowList(QMenu &menu) override;

    FileCommands &files() { return m_files; }
    FormatCommands &formats() { return m_formats; }
    PrintCommands &printing() { return m_printing; }
    CommonDialog &dlgCommonDialog() { return m_dialog; }

    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();
    void mnuWindow_Popup();
    void mnutipsandtricks_Click();

    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void tbToolBar_ButtonClick(const QString &key);
    void tbToolBar_ButtonMenuClick(const QString &key);
    void Timer1_Timer();
    void frmMain_Drop(const QStringList &paths);

    void buildMenus();
    void buildToolBar();
    bool closeChildren();
    QAction &menuItem(const QString &name) const;

    Toolbar *m_toolBar;
    StatusBar *m_statusBar;
    MdiArea *m_area;
    QHash<QString, QAction *> m_menuItems; ///< its own; children have items of the same names
    QTimer *Timer1;
    ChildMenus *m_childMenus = nullptr;
    CommonDialog m_dialog;
    FileCommands m_files;
    FormatCommands m_formats;
    PrintCommands m_printing;
    FramePosition m_position;
    QString m_lastChild;
    qint32 m_documentCount = 0;
};
