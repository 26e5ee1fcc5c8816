#pragma once

#include "FakeFrame.h"
#include "LocationBox.h"
#include "PageServer.h"
#include "ScratchProgramFolder.h"
#include "WebControl.h"
#include "frmBrowser.h"

#include <QPointer>
#include <functional>

/// The browser's window in a frame, with a server. The publisher's web server is this one.
class BrowserWindow
{
public:
    BrowserWindow();

    /// Opens one more window, as the frame's commands do, at \a path of the server or without a page.
    void open(const QString &path = {});
    /// Types \a address and presses Return.
    void enter(const QString &address) const;
    void visit(const QString &path) const { enter(server.address(path)); }
    void press(const char *key) const;
    /// Clicks into the page, near its upper left corner.
    void clickPage(Qt::MouseButton button = Qt::LeftButton) const;
    void typeIntoPage(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;

    frmBrowser &form() const { return *m_form; }
    bool isOpen() const { return !m_form.isNull(); }
    WebControl &control() const { return m_form->member<WebControl>(QStringLiteral("WebBrowser2")); }
    LocationBox &box() const { return m_form->member<LocationBox>(QStringLiteral("cboAddress")); }
    QStringList list() const;
    /// The page's part of the window's title.
    QString shownTitle() const;
    static QString caption(const QString &title);

    /// What gives a page with some text its title when it is on the screen: the engine drops all input before
    /// that.
    static QByteArray titleWhenPainted(const QByteArray &title);

    static void waitFor(const std::function<bool()> &condition);
    /// Until the window's title says that the page \a title is on show.
    void waitForTitle(const QString &title) const;

    /// The process that runs the page's scripts.
    pid_t renderer() const;

    PageServer server;
    ScratchProgramFolder programFolder;
    FakeFrame frame;

private:
    QWidget &page() const;

    QPointer<frmBrowser> m_form;
};
