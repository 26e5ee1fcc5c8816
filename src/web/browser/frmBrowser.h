#pragma once

#include "ChildForm.h"

class LocationBox;
class Toolbar;
class WebControl;
class WindowIcons;
class QFrame;
class QLabel;
class QPushButton;
class QTimer;

/// The web browser's window: the address box with the pages of this window, a toolbar, and a title that
/// follows the page. What a page shows and may do is the control's matter. Nothing is stored.
class frmBrowser : public ChildForm
{
    Q_OBJECT
    /// Set before the load; empty for no page.
    Q_PROPERTY(QString StartingAddress MEMBER StartingAddress)

public:
    frmBrowser();
    /// With a \a control, for tests, in the place of the module's; the window owns it.
    explicit frmBrowser(WebControl *control);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void Form_Load() override;
    void Form_Resize() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;

private:
    void cboAddress_Click();
    void cboAddress_KeyPress(int KeyAscii);
    void Command1_Click();
    void tbToolBar_ButtonClick(const QString &key);
    void timTimer_Timer();
    void WebBrowser2_DownloadComplete();
    void WebBrowser2_NavigateComplete();
    void WebBrowser2_PageCrashed();
    void WebBrowser2_SaveWanted(const QString &suggestedName, QString &path);
    void WebBrowser2_FileWanted(QString &path);
    void WebBrowser2_Received(const QString &path, const QString &failure);

    void navigate(const QString &address);
    void stop();
    void visitPublisher(const QString &key);
    void showTitle();
    void selectAddress();

    void build();
    void placeAddress();
    void bind();
    void bindKeys();
    void bindControl();

    QString StartingAddress;
    bool IgnoreAddressClick = false; ///< the list is being rewritten

    WindowIcons *m_icons;
    Toolbar *tbToolBar;
    QFrame *picAddress;
    QLabel *lblAddress;
    LocationBox *cboAddress;
    QPushButton *Command1;
    QTimer *timTimer;
    WebControl *WebBrowser2;
};
