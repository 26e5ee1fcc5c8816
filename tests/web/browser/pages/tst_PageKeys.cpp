#include "BrowserWindow.h"
#include "PrintQt.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct PageKeysTest : testing::Test
{
    BrowserWindow browser;

    void SetUp() override
    {
        for (const char *path : {"/a", "/b"})
            browser.server.page(path,
                                "<!doctype html><body>some text" + BrowserWindow::titleWhenPainted(path));
        browser.open(QStringLiteral("/a"));
        browser.waitForTitle(QStringLiteral("/a"));
    }
    void visitBoth()
    {
        browser.visit(QStringLiteral("/b"));
        browser.waitForTitle(QStringLiteral("/b"));
    }
};

} // namespace

TEST_F(PageKeysTest, TheBrowsersKeysWorkInThePage)
{
    visitBoth();
    browser.typeIntoPage(Qt::Key_Left, Qt::AltModifier);
    browser.waitForTitle(QStringLiteral("/a"));
    browser.typeIntoPage(Qt::Key_Right, Qt::AltModifier);
    browser.waitForTitle(QStringLiteral("/b"));
    browser.server.titled("/b", "newer");
    browser.typeIntoPage(Qt::Key_F5);
    browser.waitForTitle(QStringLiteral("newer"));
    browser.typeIntoPage(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(browser.box().lineEdit()->hasFocus());
    EXPECT_EQ(browser.box().lineEdit()->selectedText(), browser.box().Text());
}

TEST_F(PageKeysTest, EscapeStopsAPageOnTheWay)
{
    browser.server.raw("/slow", "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 9999\r\n\r\n" +
                                    QByteArray(2000, 'x'));
    browser.visit(QStringLiteral("/slow"));
    browser.waitFor([&] { return browser.control().LocationURL().path() == QStringLiteral("/slow"); });
    EXPECT_TRUE(browser.control().Busy());
    browser.typeIntoPage(Qt::Key_Escape);
    browser.waitFor([&] { return !browser.control().Busy(); });
}

TEST_F(PageKeysTest, WithoutAPageOnTheWayEscapeIsThePages)
{
    browser.server.page(
        "/keys",
        "<!doctype html><body>x<script>addEventListener('keydown', e => document.title = e.key)</script>" +
            BrowserWindow::titleWhenPainted("keys"));
    browser.visit(QStringLiteral("/keys"));
    browser.waitForTitle(QStringLiteral("keys"));
    browser.clickPage();
    browser.typeIntoPage(Qt::Key_Escape);
    browser.waitForTitle(QStringLiteral("Escape"));
}

TEST_F(PageKeysTest, TheMouseGoesBackOnce)
{
    visitBoth();
    browser.server.page("/c", "<!doctype html><body>x" + BrowserWindow::titleWhenPainted("/c"));
    browser.visit(QStringLiteral("/c"));
    browser.waitForTitle(QStringLiteral("/c"));
    browser.clickPage(Qt::BackButton);
    browser.waitForTitle(QStringLiteral("/b"));
    browser.clickPage(Qt::ForwardButton);
    browser.waitForTitle(QStringLiteral("/c"));
}

TEST_F(PageKeysTest, WhatIsSelectedIsCopied)
{
    browser.clickPage();
    browser.typeIntoPage(Qt::Key_A, Qt::ControlModifier);
    browser.typeIntoPage(Qt::Key_C, Qt::ControlModifier);
    browser.waitFor([] { return QGuiApplication::clipboard()->text() == QStringLiteral("some text"); });
    QGuiApplication::clipboard()->clear();
    browser.control().copy();
    browser.waitFor([] { return QGuiApplication::clipboard()->text() == QStringLiteral("some text"); });
}

TEST_F(PageKeysTest, ThePageIsEnlargedAndStaysSoOnTheNext)
{
    const QByteArray page = "<!doctype html><title>size</title>x<script>const say = () => document.title = "
                            "Math.round(devicePixelRatio * 100); "
                            "addEventListener('resize', say); say()</script>";
    browser.server.page("/one", page);
    browser.visit(QStringLiteral("/one"));
    browser.waitForTitle(QStringLiteral("100"));
    browser.typeIntoPage(Qt::Key_Plus, Qt::ControlModifier);
    browser.waitForTitle(QStringLiteral("110"));
    browser.typeIntoPage(Qt::Key_Equal, Qt::ControlModifier);
    browser.waitForTitle(QStringLiteral("120"));
    PageServer other;
    other.page("/", page);
    browser.enter(QStringLiteral("http://localhost:%1/").arg(other.serverPort())); // sizes are the host's
    browser.waitForTitle(QStringLiteral("120"));
    browser.typeIntoPage(Qt::Key_Minus, Qt::ControlModifier);
    browser.waitForTitle(QStringLiteral("110"));
    browser.typeIntoPage(Qt::Key_0, Qt::ControlModifier);
    browser.waitForTitle(QStringLiteral("100"));
}
