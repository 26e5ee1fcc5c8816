#include "BrowserWindow.h"
#include "Files.h"
#include "PrintQt.h"

#include <QDirIterator>
#include <gtest/gtest.h>

namespace {

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (all.hasNext())
        files << all.next();
    return files;
}

struct PageTracesTest : testing::Test
{
    BrowserWindow browser;

    void open(const QByteArray &script, const char *title)
    {
        browser.server.page("/", "<!doctype html><body>x<script>" + script + "</script>",
                            "Set-Cookie: kept=yes; Max-Age=99999\r\nCache-Control: max-age=99999\r\n");
        browser.open(QStringLiteral("/"));
        browser.waitForTitle(QString::fromLatin1(title));
    }
    void close()
    {
        browser.press("Exit");
        browser.waitFor([&] { return !browser.isOpen(); });
    }
};

} // namespace

TEST_F(PageTracesTest, NothingIsOnTheDiskAfterwards)
{
    const QStringList before = filesBelow(browser.frame.home.path());
    open("localStorage.mark = 'quilltrace'; document.cookie = 'mark=quilltrace; max-age=99999';"
         "const r = indexedDB.open('quilltrace'); r.onsuccess = () => document.title = 'stored'",
         "stored");
    close();
    EXPECT_EQ(filesBelow(browser.frame.home.path()), before);
    for (const QString &name : filesBelow(browser.programFolder.path()))
        EXPECT_TRUE(name.endsWith(QStringLiteral("/publisher.ini"))) << qUtf8Printable(name);
}

TEST_F(PageTracesTest, WindowsShareCookiesUntilTheLastIsClosed)
{
    open("document.title = 'has ' + (document.cookie || 'none')", "has kept=yes");
    browser.server.page(
        "/", "<!doctype html><script>document.title = 'has ' + (document.cookie || 'none')</script>",
        "Cache-Control: no-store\r\n");
    const QPointer<frmBrowser> first(&browser.form());
    browser.open(QStringLiteral("/?second"));
    browser.server.page(
        "/?second", "<!doctype html><script>document.title = 'has ' + (document.cookie || 'none')</script>");
    browser.waitForTitle(QStringLiteral("has kept=yes"));
    close();
    first->unload();
    browser.waitFor([&] { return first.isNull(); });
    browser.open(QStringLiteral("/"));
    browser.waitForTitle(QStringLiteral("has none"));
}
