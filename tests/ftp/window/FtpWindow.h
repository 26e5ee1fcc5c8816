#pragma once

#include "ExecutedCommands.h"
#include "FakeFrame.h"
#include "FtpServer.h"
#include "InternetTransfer.h"
#include "ListBox.h"
#include "ScratchProgramFolder.h"
#include "SessionProbe.h"
#include "frmFTP.h"

#include <QPointer>
#include <functional>

/// The FTP window in a frame, used by mouse and keyboard, with a server that serves a folder, a profile file
/// and an empty folder as the local one. Boxes have to be expected.
class FtpWindow
{
public:
    FtpWindow();
    ~FtpWindow();

    /// What the profile file says at first: the server's default user "Mirror", and anonymous as "Second".
    QByteArray profiles() const;
    /// Opens the window once more, as the frame's command does.
    void open();
    /// Closes it by its menu and lets it go.
    void close();
    /// As the user does with a server's folder that shows \a rows, which need not be files of the folder that
    /// is served; without rows, its files. What has happened so far is forgotten.
    void logOn(const QStringList &rows = {});
    void forget();

    frmFTP &form() const { return *m_form; }
    bool isOpen() const { return !m_form.isNull(); }
    InternetTransfer &session() const { return control<InternetTransfer>("ITC"); }
    /// The requests that the server got, joined by "|", without the session's own that prepare others.
    QString commands() const;

    /// Clicks, then waits until the session is idle or the server holds it up.
    void click(const char *name) const;
    void settle() const;
    /// \a step runs once, in the middle of the reading of the rows behind the next changing command. There
    /// are more than 4096 characters.
    void whileListIsRead(const std::function<void()> &step);
    static void waitFor(const std::function<bool()> &condition);

    bool isEnabled(const char *name) const;
    QString status() const;
    ListBox &remote() const;
    QStringList rows() const;
    void selectRow(const QString &row) const;
    void doubleClickRow(const QString &row) const;
    /// Puts a file into the local folder and the list, and selects it.
    void addLocalFile(const QByteArray &name, const QByteArray &content = {}) const;
    void selectLocalFile(const QByteArray &name) const;

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->member<Control>(QString::fromLatin1(name));
    }

    ScratchProgramFolder programFolder;
    ScratchFolder served;
    ScratchFolder local;
    FtpServer server{served.path()};
    SessionProbe probe;
    ExecutedCommands executed;
    FakeFrame frame;
    int beeps = 0;

private:
    QPointer<frmFTP> m_form;
};
