#pragma once

#include "FakeFrame.h"
#include "ListBox.h"
#include "ScratchProgramFolder.h"
#include "StandInSession.h"
#include "frmFTP.h"

#include <QPointer>

class QPushButton;

/// The FTP window in a frame, used by mouse and keyboard, with a profile file of its own and an empty folder
/// as the local one. Boxes have to be expected.
class FtpWindow
{
public:
    /// What the profile file says at first.
    static constexpr const char *profiles = "0,Mirror,ftp.example.org,tester,secret,extra\r\n"
                                            "1,Second,two.example.org,,pass,\r\n";

    FtpWindow();
    ~FtpWindow();

    /// Opens the window once more, as the frame's command does.
    void open();
    /// Closes it by its menu and lets it go.
    void close();
    /// As the user does with a server's folder that has \a rows, and forgets what has been asked so far.
    void logOn(const QStringList &rows = {});

    frmFTP &form() const { return *m_form; }
    bool isOpen() const { return !m_form.isNull(); }
    StandInSession &session() const { return StandInSession::current(); }
    /// The texts of the commands so far, joined by "|".
    QString commands() const { return StandInSession::commands().join(u'|'); }

    void click(const char *name) const;
    bool isEnabled(const char *name) const;
    QString status() const;
    ListBox &remote() const;
    QStringList rows() const;
    void selectRow(const QString &row) const;
    void doubleClickRow(const QString &row) const;
    /// Puts a file into the local folder and the list, and selects it.
    void addLocalFile(const QByteArray &name) const;

    template<class Control>
    Control &control(const char *name) const
    {
        return m_form->member<Control>(QString::fromLatin1(name));
    }

    ScratchProgramFolder programFolder;
    ScratchFolder local;
    FakeFrame frame;
    int beeps = 0;

private:
    QPointer<frmFTP> m_form;
};
