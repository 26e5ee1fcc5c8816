#include "BrowserWindow.h"
#include "Forms.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <QDesktopServices>
#include <gtest/gtest.h>

namespace {

/// Receives what the engine would hand to other programs.
class OtherPrograms : public QObject
{
    Q_OBJECT

public:
    OtherPrograms()
    {
        for (const QString &scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "receive");
    }
    ~OtherPrograms() override
    {
        for (const QString &scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    const QList<QUrl> &opened() const { return m_opened; }

    Q_INVOKABLE void receive(const QUrl &url) { m_opened.append(url); }

private:
    const QStringList schemes{QStringLiteral("tel"),    QStringLiteral("mailto"), QStringLiteral("steam"),
                              QStringLiteral("magnet"), QStringLiteral("file"),   QStringLiteral("ftp")};
    QList<QUrl> m_opened;
};

/// Tells the server when the page has had the time to do what it wants.
const QByteArray toTheEnd = "<script>setTimeout(() => new Image().src = '/end', 100)</script>";

struct PageRightsTest : testing::Test
{
    BrowserWindow browser;
    ScratchFolder files;
    OtherPrograms others;

    QString at(const char *path) const { return browser.server.address(QString::fromLatin1(path)); }
    QString file(const char *name) const { return QString::fromUtf8(files.file(name)); }
    void waitForTheEnd()
    {
        browser.waitFor([&] { return browser.server.requestsFor("/end") > 0; });
    }
    /// Shows the page with \a body, which sets its title itself to \a title.
    void show(const QByteArray &body, const char *title)
    {
        browser.server.page("/", "<!doctype html><body>" + body);
        browser.open(QStringLiteral("/"));
        browser.waitForTitle(QString::fromUtf8(title));
    }
};

/// A page that goes to \a target in one way, and shows by its title that it is still there.
struct Escape
{
    const char *what;
    QByteArray body;
};

void PrintTo(const Escape &escape, std::ostream *out)
{
    *out << escape.what << ": " << escape.body.constData();
}

struct PageEscapeTest : PageRightsTest, testing::WithParamInterface<Escape>
{};

QList<Escape> escapes()
{
    QList<Escape> all;
    for (const char *target :
         {"tel:+123", "mailto:a@b.example", "steam://run/1", "magnet:?xt=1", "ftp://127.0.0.1/x",
          "file:///etc/passwd", "data:text/html,<title>there</title>", "chrome://gpu",
          "view-source:http://127.0.0.1/", "filesystem:http://127.0.0.1/x", "qrc:///x"}) {
        const QByteArray address(target);
        all << Escape{"by a script", "<script>location = \"" + address + "\"</script>"}
            << Escape{"by a click", "<a id=x href=\"" + address + "\">x</a><script>x.click()</script>"}
            << Escape{"by a meta refresh", "<meta http-equiv=refresh content=\"0; url=" + address + "\">"}
            << Escape{"in a frame", "<iframe src=\"" + address + "\"></iframe>"}
            << Escape{"in a window", "<script>open(\"" + address + "\")</script>"}
            << Escape{"by a form",
                      "<form id=x action=\"" + address + "\"></form><script>x.submit()</script>"};
    }
    return all;
}

} // namespace

TEST_P(PageEscapeTest, LeadsNowhere)
{
    browser.server.page("/", "<!doctype html><title>here</title><body>" + toTheEnd + GetParam().body);
    browser.open(QStringLiteral("/"));
    waitForTheEnd();
    EXPECT_EQ(browser.control().LocationName(), QStringLiteral("here"));
    EXPECT_EQ(browser.control().LocationURL().toString(), at("/"));
    EXPECT_EQ(others.opened(), QList<QUrl>());
    EXPECT_EQ(Forms::loaded().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, PageEscapeTest, testing::ValuesIn(escapes()),
                         [](const auto &row) { return std::to_string(row.index); });

TEST_F(PageRightsTest, ARedirectToAFileIsRefused)
{
    files.addFile("secret.html", "<title>secret</title>");
    browser.server.redirect("/", "file://" + file("secret.html").toUtf8());
    browser.open(QStringLiteral("/"));
    browser.waitFor([&] { return browser.server.requestsFor("/") == 1; });
    browser.waitFor([&] { return !browser.control().Busy(); });
    EXPECT_NE(browser.control().LocationName(), QStringLiteral("secret"));
    EXPECT_FALSE(browser.control().LocationURL().isLocalFile());
}

TEST_F(PageRightsTest, TheControlShowsNoOtherScheme)
{
    browser.open();
    for (const char *address :
         {"data:text/html,x", "javascript:1", "chrome://gpu", "ftp://127.0.0.1/x", ""}) {
        browser.control().Navigate(QUrl(QString::fromLatin1(address)));
        EXPECT_FALSE(browser.control().Busy()) << address;
    }
}

TEST_F(PageRightsTest, ATypedFileIsShown)
{
    files.addFile("a.html", "<title>mine</title><img src=b.png>");
    browser.open();
    browser.enter(file("a.html"));
    browser.waitForTitle(QStringLiteral("mine"));
    EXPECT_EQ(browser.list(), QStringList(QStringLiteral("file://") + file("a.html")));
    files.addFile("a.html", "<title>newer</title>");
    browser.press("Refresh");
    browser.waitForTitle(QStringLiteral("newer"));
    browser.server.titled("/", "web");
    browser.enter(at("/"));
    browser.waitForTitle(QStringLiteral("web"));
    browser.press("Back");
    browser.waitForTitle(QStringLiteral("newer"));
}

TEST_F(PageRightsTest, ATypedFileWithoutAnExtensionIsShown)
{
    files.addFile("plain", "words");
    browser.open();
    browser.enter(file("plain"));
    browser.waitFor([&] { return browser.list() == QStringList(QStringLiteral("file://") + file("plain")); });
}

TEST_F(PageRightsTest, AFileLeadsToNoOtherFile)
{
    files.addFile("b.html", "<title>other</title>");
    files.addFile("a.html", "<title>mine</title><script>location = 'b.html';"
                            "setTimeout(() => document.title = 'mine still', 100)</script>");
    browser.open();
    browser.enter(file("a.html"));
    browser.waitForTitle(QStringLiteral("mine still"));
}

TEST_F(PageRightsTest, AFileReadsNoOtherFile)
{
    files.addFile("b.txt", "secret");
    files.addFile(
        "a.html",
        "<title>mine</title><script>fetch('b.txt').then(x => x.text()).then(x => document.title = x)"
        ".catch(() => document.title = 'refused')</script>");
    browser.open();
    browser.enter(file("a.html"));
    browser.waitForTitle(QStringLiteral("refused"));
}

TEST_F(PageRightsTest, AWindowOpenedByAClickIsThisOne)
{
    browser.server.titled("/b", "second");
    show(BrowserWindow::titleWhenPainted("first") +
             "<a href=/b target=_blank style='position:fixed;inset:0'>x</a>",
         "first");
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("second"));
    EXPECT_EQ(Forms::loaded().size(), 1);
    browser.press("Back");
    browser.waitForTitle(QStringLiteral("first"));
}

TEST_F(PageRightsTest, AWindowOpenedWithoutAClickIsNone)
{
    show("<script>const w = open('/b'); document.title = w ? 'open' : 'none'</script>", "none");
    EXPECT_EQ(browser.server.requestsFor("/b"), 0);
}

TEST_F(PageRightsTest, APageDoesNotCloseTheWindow)
{
    show("<script>document.title = 'on'; window.close(); self.close()</script>", "on");
    browser.server.titled("/b", "second");
    browser.visit(QStringLiteral("/b"));
    browser.waitForTitle(QStringLiteral("second"));
    EXPECT_TRUE(browser.isOpen());
}

TEST_F(PageRightsTest, PrintingInALoopShowsNothing)
{
    show("<script>for (let i = 0; i < 20; ++i) print(); document.title = 'done'</script>", "done");
    EXPECT_TRUE(browser.frame.dialogs.seen().isEmpty());
}

namespace {

struct Permission
{
    const char *what;
    const char *script; ///< sets the title
    const char *title;
};

void PrintTo(const Permission &permission, std::ostream *out)
{
    *out << permission.what;
}

struct PermissionTest : PageRightsTest, testing::WithParamInterface<Permission>
{};

constexpr Permission permissions[] = {
    {"place",
     "navigator.geolocation.getCurrentPosition(() => document.title = 'given', e => document.title = "
     "'refused ' + e.code)",
     "refused 1"},
    {"notes", "Notification.requestPermission().then(x => document.title = x)", "denied"},
    {"camera",
     "(navigator.mediaDevices ? navigator.mediaDevices.getUserMedia({video: true}) : Promise.reject())"
     ".then(() => document.title = 'given').catch(() => document.title = 'refused')",
     "refused"},
    {"screen",
     "(navigator.mediaDevices ? navigator.mediaDevices.getDisplayMedia({video: true}) : Promise.reject())"
     ".then(() => document.title = 'given').catch(() => document.title = 'refused')",
     "refused"},
    {"clipboard",
     "navigator.clipboard.readText().then(() => document.title = 'given').catch(() => document.title = "
     "'refused')",
     "refused"},
    {"full screen",
     "document.documentElement.requestFullscreen().then(() => document.title = 'given')"
     ".catch(() => document.title = 'refused')",
     "refused"},
    {"pointer",
     "document.onpointerlockchange = () => document.title = 'given';"
     "document.onpointerlockerror = () => document.title = 'refused';"
     "document.documentElement.requestPointerLock()",
     "refused"},
    {"scheme",
     "try { navigator.registerProtocolHandler('mailto', location.origin + '/%s') } catch (e) {}"
     "document.title = 'asked'",
     "asked"},
};

} // namespace

TEST_P(PermissionTest, IsRefused)
{
    show(BrowserWindow::titleWhenPainted("asks") + "x<script>addEventListener('click', () => {" +
             GetParam().script + "})</script>",
         "asks");
    browser.clickPage();
    browser.waitForTitle(QString::fromUtf8(GetParam().title));
    EXPECT_TRUE(browser.frame.dialogs.seen().isEmpty());
    EXPECT_EQ(others.opened(), QList<QUrl>());
}

INSTANTIATE_TEST_SUITE_P(Kinds, PermissionTest, testing::ValuesIn(permissions),
                         [](const auto &row) { return std::to_string(row.index); });

TEST_F(PageRightsTest, AnUntrustedCertificateIsRefused)
{
    PageServer secure(true);
    secure.titled("/", "secret");
    browser.open();
    browser.enter(secure.address(QStringLiteral("/")));
    browser.waitFor([&] {
        return !browser.control().Busy() && browser.form().Caption() != QStringLiteral("Working...");
    });
    EXPECT_TRUE(secure.requests().isEmpty());
    EXPECT_NE(browser.control().LocationName(), QStringLiteral("secret"));
    browser.press("Refresh");
    browser.waitFor([&] { return !browser.control().Busy(); });
    EXPECT_TRUE(secure.requests().isEmpty());
}

#include "tst_PageRights.moc"
