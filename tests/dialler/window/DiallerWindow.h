#pragma once

#include "FakeFrame.h"
#include "LineMessage.h"
#include "RecordedLineService.h"
#include "ScratchProgramFolder.h"
#include "frmdialler.h"

#include <QPointer>

class ListBox;
class QAction;
class QComboBox;
class QPushButton;

/// The dialler's window in a frame, with lines that a test sets up: two at first, with the number 0 in
/// dialler.dat. The window's waits take no time.
class DiallerWindow
{
public:
    // The identifiers of the service's requests.
    static constexpr quint32 makeRequest = 17;
    static constexpr quint32 dropRequest = 18;

    DiallerWindow();
    ~DiallerWindow();
    DiallerWindow(const DiallerWindow &) = delete;
    DiallerWindow &operator=(const DiallerWindow &) = delete;

    /// As the frame does.
    void open(const char *mode);
    bool isOpen() const { return !m_form.isNull() && m_form->isLoaded(); }
    /// Waits until the window that was unloaded is deleted.
    bool isGone() const;
    frmdialler &form() const { return *m_form; }

    template<class Control>
    Control &control(const char *name) const;
    QPushButton &button(const QByteArray &name) const;
    QAction &item(const char *name) const;
    void press(const QByteArray &button) const;
    void type(const QString &number) const;
    QString number() const;
    /// Chooses a row of the list of lines from its popup, also the one that is chosen already.
    void chooseLine(int row) const;
    QStringList lineRows() const;
    QStringList report() const { return rows("lstLineInfo"); }
    QStringList log() const { return rows("lstCallProgress"); }
    QStringList rows(const char *list) const;
    bool canDial() const;
    bool canHangUp() const;

    // What the line reports.
    void reply(quint32 request, quint32 result = 0) const
    {
        service.report(LineMessage::Reply, request, result);
    }
    void state(LineMessage::State state) const { service.report(LineMessage::CallState, state); }

    void putFile(const QByteArray &content) const { folder.addFile("dialler.dat", content); }
    QByteArray file() const;

    RecordedLineService service;
    bool hasOwnLines = false; ///< the user's lines take the place of the service
    ScratchProgramFolder folder;
    FakeFrame frame;
    QList<int> pauses;                 ///< of the window, in milliseconds
    std::function<void()> duringPause; ///< runs in each of them
    int beeps = 0;

private:
    QPointer<frmdialler> m_form;
};

template<class Control>
Control &DiallerWindow::control(const char *name) const
{
    return m_form->member<Control>(QString::fromLatin1(name));
}
