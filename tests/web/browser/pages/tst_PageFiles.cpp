#include "BrowserWindow.h"
#include "Files.h"
#include "FullDisk.h"
#include "PrintQt.h"
#include "QtMessages.h"
#include "ScratchFolder.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct PageFilesTest : testing::Test
{
    BrowserWindow browser;
    ScratchFolder folder;

    void SetUp() override
    {
        browser.server.titled("/", "page");
        browser.open(QStringLiteral("/"));
        browser.waitForTitle(QStringLiteral("page"));
    }
    QString place(const char *name) const { return QString::fromUtf8(folder.file(name)); }
    static QString title() { return QStringLiteral("Tallowick Web Browser"); }
    void offer(const QByteArray &name, const QByteArray &bytes = "bytes")
    {
        browser.server.page(
            "/file", bytes,
            "Content-Type: application/octet-stream\r\nContent-Disposition: attachment; filename=\"" + name +
                "\"\r\n");
    }
    /// The beginning of a long file.
    static QByteArray beginning()
    {
        return "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
               "Content-Disposition: attachment\r\nContent-Length: 9999999\r\n\r\n" +
               QByteArray(4096, 'x');
    }
    FileDialogStep &expectSave()
    {
        return browser.frame.dialogs.expectFileDialog(QStringLiteral("Save File"));
    }
    void expectSaved(const QString &name)
    {
        browser.frame.dialogs.expectBox(title(), name + QStringLiteral(" has been saved."))
            .icon(QMessageBox::Information);
    }
    void expectFailure(const QString &name, const QString &failure)
    {
        browser.frame.dialogs
            .expectBox(title(), QStringLiteral("%1 could not be received: %2.").arg(name, failure))
            .icon(QMessageBox::Warning);
    }
    void waitForDialogs(int count) const
    {
        browser.waitFor([&] { return browser.frame.dialogs.seen().size() == count; });
        browser.waitFor([&] { return QApplication::activeModalWidget() == nullptr; });
    }
};

} // namespace

TEST_F(PageFilesTest, AnOfferedFileIsSavedWhereTheUserSays)
{
    offer("a.bin");
    expectSave()
        .suggests(QStringLiteral("a.bin"))
        .filters({QStringLiteral("All Files (*.*)")})
        .accept(place("b.bin"));
    expectSaved(QStringLiteral("b.bin"));
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(2);
    EXPECT_EQ(Files::read(place("b.bin")), "bytes");
    EXPECT_FALSE(browser.control().Busy());
    EXPECT_FALSE(browser.control().isReceiving());
    browser.waitForTitle(QStringLiteral("page"));
}

TEST_F(PageFilesTest, ARefusedFileIsNowhere)
{
    offer("a.bin");
    expectSave().cancel();
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(1);
    browser.waitForTitle(QStringLiteral("page"));
    EXPECT_FALSE(browser.control().isReceiving());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(PageFilesTest, AFileThatExistsIsReplacedAfterTheDialogHasAsked)
{
    folder.addFile("b.bin", "old");
    offer("a.bin");
    expectSave().accept(place("b.bin"));
    browser.frame.dialogs
        .expectBox(QStringLiteral("Save File"),
                   QStringLiteral("b.bin already exists.\nDo you want to replace it?"))
        .press(QMessageBox::Yes);
    expectSaved(QStringLiteral("b.bin"));
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(3);
    EXPECT_EQ(Files::read(place("b.bin")), "bytes");
}

TEST_F(PageFilesTest, AnEndlessFileIsGivenUpWithTheWindow)
{
    browser.server.raw("/file", beginning());
    expectSave().accept(place("b.bin"));
    browser.visit(QStringLiteral("/file"));
    browser.waitFor([&] { return browser.control().isReceiving(); });
    const QString question =
        QStringLiteral("A file is still being received. Close the window and give the file up?");
    browser.frame.dialogs.expectBox(title(), question).defaultButton(QMessageBox::No).press(QMessageBox::No);
    browser.press("Exit");
    EXPECT_TRUE(browser.isOpen());
    EXPECT_TRUE(browser.form().isLoaded());
    browser.frame.dialogs.expectBox(title(), question).press(QMessageBox::Yes);
    browser.press("Exit");
    browser.waitFor([&] { return !browser.isOpen(); });
    browser.waitFor([&] { return QDir(folder.path()).isEmpty(); });
}

TEST_F(PageFilesTest, AFileThatBreaksOffIsReported)
{
    browser.server.breakOff("/file", beginning());
    expectSave().accept(place("b.bin"));
    expectFailure(QStringLiteral("b.bin"), QStringLiteral("the server has not sent all of it"));
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(2);
    EXPECT_FALSE(browser.control().isReceiving());
    browser.waitFor([&] { return QDir(folder.path()).isEmpty(); });
}

TEST_F(PageFilesTest, AFileThatCannotBeWrittenIsReported)
{
    constexpr int megabyte = 1 << 20;
    offer("a.bin", QByteArray(32 * megabyte, 'x'));
    expectSave().accept(place("b.bin"));
    expectFailure(QStringLiteral("b.bin"), QStringLiteral("the file cannot be written"));
    const FullDisk disk(16 * megabyte); // more than the engine's own memory files
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(2);
    EXPECT_FALSE(browser.control().isReceiving());
    browser.waitFor([&] { return QDir(folder.path()).isEmpty(); });
}

TEST_F(PageFilesTest, AFolderThatHasGoneIsReported)
{
    QtMessages::expect(QStringLiteral("Creating download path failed"));
    offer("a.bin");
    folder.addFolder("x");
    expectSave().accept(place("x/b.bin"));
    expectFailure(QStringLiteral("b.bin"), QStringLiteral("its folder cannot be written to"));
    QObject::connect(&browser.control(), &WebControl::SaveWanted, &browser.form(), [&] {
        QDir(folder.path()).rmdir(QStringLiteral("x"));
        folder.addFile("x");
    });
    browser.visit(QStringLiteral("/file"));
    waitForDialogs(2);
    EXPECT_FALSE(browser.control().isReceiving());
}

namespace {

struct SentFileTest : PageFilesTest
{
    /// A page that \a script acts in at each click.
    void showClickable(const QByteArray &script)
    {
        browser.server.page("/send",
                            "<!doctype html><body>x<input type=file multiple id=f hidden>"
                            "<script>f.onchange = () => document.title = f.files.length + f.files[0].name;"
                            "addEventListener('click', e => { if (e.target != f) {" +
                                script + "} })</script>" + BrowserWindow::titleWhenPainted("send"));
        browser.visit(QStringLiteral("/send"));
        browser.waitForTitle(QStringLiteral("send"));
    }
    FileDialogStep &expectSend()
    {
        return browser.frame.dialogs.expectFileDialog(QStringLiteral("Send File"));
    }
};

} // namespace

TEST_F(SentFileTest, APageGetsTheFileThatTheUserChooses)
{
    folder.addFile("a.txt", "mine");
    showClickable("f.click()");
    expectSend().filters({QStringLiteral("All Files (*.*)")}).accept(place("a.txt"));
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("1a.txt"));
}

TEST_F(SentFileTest, WithoutAChoiceItGetsNone)
{
    showClickable("if (window.asked) document.title = 'files ' + f.files.length; else f.click();"
                  "window.asked = true");
    expectSend().cancel();
    browser.clickPage();
    waitForDialogs(1);
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("files 0"));
}

TEST_F(SentFileTest, APageWritesIntoNoFile)
{
    const QTemporaryDir ordinary; // the engine itself refuses some folders, /dev among them
    const QString file = ordinary.filePath(QStringLiteral("a.txt"));
    Files::write(file, "mine");
    // That there was a click may reach the engine's own process later than what the page asks because of it.
    showClickable("const ask = () => showOpenFilePicker()"
                  ".catch(e => e.name == 'NotAllowedError' ? ask() : Promise.reject(e));"
                  "ask().then(x => x[0].createWritable()).then(x => x.write('other').then(() => x.close()))"
                  ".then(() => document.title = 'written').catch(() => document.title = 'refused')");
    expectSend().accept(file);
    browser.clickPage();
    browser.waitForTitle(QStringLiteral("refused"));
    EXPECT_EQ(Files::read(file), "mine");
}
