#pragma once

#include "FakeFrame.h"
#include "HttpServer.h"
#include "ScratchProgramFolder.h"
#include "frmdownload2.h"

#include <QPointer>

/// The update checker's window in a frame, beside a server and a program's folder of its own. Its pauses are
/// short.
class UpdateWizard
{
public:
    UpdateWizard();
    ~UpdateWizard();

    /// Answers requests for the file \a name of the update server.
    void serve(const QByteArray &name, const QByteArray &content);
    /// "version.dat" with a version that is new, or not.
    void serveVersion(bool isNew, const QByteArray &message = "A,B,C,N,N\r\n");
    /// "updatefilelist.dat" and the files of it, each with its right length.
    void serveFiles(const QMap<QByteArray, QByteArray> &files);
    /// The installer, which notes that it has started.
    void addInstaller() const;
    bool hasStartedInstaller() const;

    /// Presses \a button by the mouse, if it is to be seen.
    void press(const char *button);
    QString text() const;
    /// What the text box has shown since the last press.
    const QStringList &texts() const { return m_texts; }
    /// The buttons that are to be seen, in their order.
    QString buttons() const;
    bool isBusy() const;
    bool isOpen() const { return !m_form.isNull() && m_form->isLoaded(); }
    frmdownload2 &form() const { return *m_form; }
    QStringList upgradeFiles() const;

    FakeFrame frame;
    ScratchProgramFolder program;
    HttpServer server;

private:
    QPointer<frmdownload2> m_form;
    QStringList m_texts;
};
