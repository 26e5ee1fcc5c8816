#include "EventGate.h"
#include "LocationBox.h"
#include "MissingControl.h"
#include "Named.h"
#include "PageBox.h"
#include "Publisher.h"
#include "RuntimeError.h"
#include "ThemeIcon.h"
#include "Toolbar.h"
#include "Twips.h"
#include "TypedAddress.h"
#include "WebBox.h"
#include "WebModule.h"
#include "WindowCommands.h"
#include "WindowIcons.h"
#include "frmBrowser.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

namespace {

constexpr int ticks = 5; // milliseconds

constexpr ToolbarRow buttons[] = {
    {1, "Back", "Back", "go-previous"},
    {2, "Forward", "Forward", "go-next"},
    {3, "Refresh", "Refresh", "view-refresh"},
    {4, "Home", "Home", "go-home"},
    {5, "Search", "Search", "system-search"},
    {6, "Stop", "Stop", "process-stop"},
    {7, nullptr, nullptr, nullptr},
    {8, "Tallowick", "Tallowick", "internet-web-browser"},
    {9, "QuillOffice", "Quill-Office Tools", "applications-office"},
    {10, "Downloads", "Downloads", "download"},
    {11, "Support", "Support", "help-contents"},
    {12, "Contact", "Contact", "mail-message"},
    {13, nullptr, nullptr, nullptr},
    {14, "Exit", "Exit", "application-exit"},
};

// Twips.
constexpr int besideAddress = 1500; // what the address box leaves of the window's width
constexpr int besidePage = 50;
constexpr int goWidth = 750; // of the button, at the right edge
constexpr int margin = 45;   // around the address box
constexpr QSize usualSize(10200, 8100);
constexpr QSize leastSize(4500, 3000);

QSize pixels(QSize twips, const QWidget &window)
{
    return {Twips::toPixels(twips.width(), window.logicalDpiX()),
            Twips::toPixels(twips.height(), window.logicalDpiY())};
}

WebControl *makeControl()
{
    try {
        return WebModule::makeControl(nullptr);
    } catch (const RuntimeError &error) {
        return new MissingControl(error.description(), nullptr);
    }
}

} // namespace

frmBrowser::frmBrowser()
    : frmBrowser(makeControl())
{}

frmBrowser::frmBrowser(WebControl *control)
    : ChildForm(QStringLiteral("frmBrowser"))
    , m_icons(new WindowIcons(*this))
    , tbToolBar(named("tbToolBar", new Toolbar(this), QStringLiteral("Browser")))
    , picAddress(named("picAddress", new QFrame(this)))
    , lblAddress(named<QLabel>("lblAddress", QStringLiteral("&Address:")))
    , cboAddress(named<LocationBox>("cboAddress", QStringLiteral("Address")))
    , Command1(named("Command1", new QPushButton(picAddress), QStringLiteral("Goto Address")))
    , timTimer(named("timTimer", new QTimer(this)))
    , WebBrowser2(named("WebBrowser2", control, QStringLiteral("Page")))
{
    setCaption(QStringLiteral("Tallowick Web Browser"));
    setWindowIcon(ThemeIcon::named(QStringLiteral("internet-web-browser")));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    build();
    bind();
    bindKeys();
    bindControl();
}

QSize frmBrowser::sizeHint() const
{
    return pixels(usualSize, *this);
}

QSize frmBrowser::minimumSizeHint() const
{
    return pixels(leastSize, *this);
}

void frmBrowser::build()
{
    tbToolBar->setButtons(buttons);
    timTimer->setInterval(ticks);
    lblAddress->setParent(picAddress);
    lblAddress->setBuddy(cboAddress);
    cboAddress->setParent(picAddress);
    Command1->setToolTip(QStringLiteral("Goto Address"));
    m_icons->add(*Command1, QStringLiteral("go-jump-locationbar"));
    WebBrowser2->setParent(this);
    WebBrowser2->setHomeAddress(TypedAddress::url(Publisher::page(QStringLiteral("Home"))));
    WebBrowser2->setSearchAddress(TypedAddress::url(Publisher::page(QStringLiteral("Search"))));
    setFocusProxy(cboAddress);
    setTabOrder(cboAddress, Command1);
    setTabOrder(Command1, WebBrowser2);
}

/// The places are those of the design, which no layout knows. They follow the width alone, so that the
/// address box and its button keep their distance from the right edge.
void frmBrowser::Form_Resize()
{
    const auto across = [&](double twips) { return Twips::toPixels(twips, logicalDpiX()); };
    tbToolBar->setGeometry(0, 0, width(), tbToolBar->sizeHint().height());
    placeAddress();
    const QRect address = picAddress->geometry();
    const double below = Twips::fromPixels(address.y() + address.height(), logicalDpiY());
    WebBrowser2->setGeometry(across(besidePage / 2.0), address.bottom() + 1,
                             across(ScaleWidth() - besidePage),
                             Twips::toPixels(ScaleHeight() - below, logicalDpiY()));
}

/// The label is left of the box, or above it where a large font leaves no room there.
void frmBrowser::placeAddress()
{
    const auto across = [&](double twips) { return Twips::toPixels(twips, logicalDpiX()); };
    const int space = across(margin);
    const int boxHeight = cboAddress->sizeHint().height();
    const QSize label = lblAddress->sizeHint();
    const int beside = across(goWidth) - label.width();
    const bool isAbove = beside < 0;
    const int top = space + (isAbove ? label.height() + space : 0);
    lblAddress->setGeometry(isAbove ? space : beside / 2, isAbove ? space : top, label.width(),
                            isAbove ? label.height() : boxHeight);
    cboAddress->setGeometry(isAbove ? space : across(goWidth), top, across(ScaleWidth() - besideAddress),
                            boxHeight);
    Command1->setGeometry(across(ScaleWidth() - goWidth), top, across(goWidth - margin), boxHeight);
    picAddress->setGeometry(0, tbToolBar->height(), width(), top + boxHeight + space);
}

void frmBrowser::bind()
{
    WindowCommands::bind(*this, {{"Command1", &frmBrowser::Command1_Click}});
    on(tbToolBar, &Toolbar::ButtonClick, this, &frmBrowser::tbToolBar_ButtonClick);
    on(cboAddress, &LocationBox::Click, this, &frmBrowser::cboAddress_Click);
    on(cboAddress, &LocationBox::KeyPress, this, &frmBrowser::cboAddress_KeyPress);
    on(timTimer, &QTimer::timeout, this, &frmBrowser::timTimer_Timer);
}

void frmBrowser::bindKeys()
{
    const auto key = [this](const QKeySequence &keys, auto handler) {
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        on(shortcut, &QShortcut::activated, this, handler);
    };
    key(Qt::Key_F5, [this] { tbToolBar_ButtonClick(QStringLiteral("Refresh")); });
    key(Qt::ALT | Qt::Key_Left, [this] { tbToolBar_ButtonClick(QStringLiteral("Back")); });
    key(Qt::ALT | Qt::Key_Right, [this] { tbToolBar_ButtonClick(QStringLiteral("Forward")); });
    key(Qt::Key_Escape, [this] { tbToolBar_ButtonClick(QStringLiteral("Stop")); });
    key(Qt::CTRL | Qt::Key_L, [this] {
        cboAddress->setFocus();
        cboAddress->lineEdit()->selectAll();
    });
    key(Qt::CTRL | Qt::Key_Plus, [this] { WebBrowser2->zoom(1); });
    key(Qt::CTRL | Qt::Key_Equal, [this] { WebBrowser2->zoom(1); }); // the same key without Shift
    key(Qt::CTRL | Qt::Key_Minus, [this] { WebBrowser2->zoom(-1); });
    key(Qt::CTRL | Qt::Key_0, [this] { WebBrowser2->zoom(0); });
}

void frmBrowser::bindControl()
{
    on(WebBrowser2, &WebControl::NavigateComplete, this, &frmBrowser::WebBrowser2_NavigateComplete);
    on(WebBrowser2, &WebControl::DownloadComplete, this, &frmBrowser::WebBrowser2_DownloadComplete);
    on(WebBrowser2, &WebControl::PageCrashed, this, &frmBrowser::WebBrowser2_PageCrashed);
    on(WebBrowser2, &WebControl::BoxWanted, this, [](WebBox &box) { PageBox::show(box); });
    on(WebBrowser2, &WebControl::SaveWanted, this, &frmBrowser::WebBrowser2_SaveWanted);
    on(WebBrowser2, &WebControl::FileWanted, this, &frmBrowser::WebBrowser2_FileWanted);
    on(WebBrowser2, &WebControl::Received, this, &frmBrowser::WebBrowser2_Received);
}
