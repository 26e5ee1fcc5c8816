#include "AsUser.h"
#include "FileNames.h"
#include "Files.h"
#include "Forms.h"
#include "FullDisk.h"
#include "Globals.h"
#include "HostileNames.h"
#include "Paths.h"
#include "RunningSuite.h"
#include "ScratchFolder.h"
#include "SeenDialog.h"
#include "ShownText.h"
#include "StandInTool.h"
#include "UrlCatcher.h"
#include "frmDocument.h"

#include <QDir>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

const char *const saveChanges = "Save Changes?...";
const char *const saveAsRtf = "Save as RTF?...";
const char *const confirmText = "Confirm Save As Text...";

struct DocumentTest : testing::Test
{
    RunningSuite suite;

    QString path(const char *name) const { return suite.home.file(QString::fromLatin1(name)); }
    QString write(const char *name, const QByteArray &bytes) const
    {
        Files::write(path(name), bytes);
        return path(name);
    }
    BoxStep &box(const char *title, const QString &text)
    {
        return suite.dialogs.expectBox(QString::fromLatin1(title), text);
    }
    BoxStep &saveQuestion(const QString &caption)
    {
        return box(saveChanges, QStringLiteral("Save Changes to ") + caption).icon(QMessageBox::Question);
    }
    BoxStep &rtfQuestion()
    {
        return box(saveAsRtf,
                   QStringLiteral("Save as RTF? Yes to save as RTF format No to save in Plain Text."));
    }
    BoxStep &textQuestion()
    {
        return box(confirmText, QStringLiteral("Saving as Text will remove all formatting, continue?"));
    }
    FileDialogStep &fileDialog(const char *title)
    {
        return suite.dialogs.expectFileDialog(QString::fromLatin1(title));
    }
    void open(const QString &name)
    {
        fileDialog("Open").accept(name);
        suite.choose("mnuFileOpen");
    }
    BoxStep &systemError(int number, const char *description)
    {
        return box("System Error!", QStringLiteral("An error has occurred - Code: %1 Description: %2")
                                        .arg(number)
                                        .arg(QString::fromLatin1(description)));
    }
    void closeUnsaved()
    {
        saveQuestion(suite.active().Caption()).press(QMessageBox::No);
        suite.choose("mnuFileClose");
    }
};

const QByteArray boldRtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Liberation Sans;}}\\f0\\fs24 plain {\\b bold}\\par}";

} // namespace

TEST_F(DocumentTest, ClosedWithoutTypingItAsksNothing)
{
    suite.choose("mnuFileClose");
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
}

TEST_F(DocumentTest, OneCharacterAsksWithTheCaption)
{
    suite.type(QStringLiteral("x"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::No);
    suite.choose("mnuFileClose");
    EXPECT_EQ(lastAnswer, QStringLiteral("7"));
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
}

TEST_F(DocumentTest, DecliningTheLastQuestionClosesUnsaved)
{
    suite.type(QStringLiteral("x"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::No);
    textQuestion().press(QMessageBox::No);
    suite.choose("mnuFileClose");
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
}

TEST_F(DocumentTest, ClosingOffersTheDialogUntilAFileIsNamed)
{
    suite.type(QStringLiteral("kept"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::Yes);
    fileDialog("Save As RTF").cancel();
    fileDialog("Save As RTF")
        .folder(Paths::appPath() + QStringLiteral("/docs"))
        .filters({QStringLiteral("Rich Text Format (*.rtf)")})
        .defaultSuffix(QStringLiteral("rtf"))
        .accept(path("kept"));
    suite.choose("mnuFileClose");
    EXPECT_TRUE(Files::read(path("kept.rtf")).contains("kept"));
}

TEST_F(DocumentTest, ClosingAsTextWritesPlainText)
{
    suite.type(QStringLiteral("plain words"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::No);
    textQuestion().press(QMessageBox::Yes);
    fileDialog("Save As TXT")
        .folder(Paths::appPath() + QStringLiteral("/docs"))
        .filters({QStringLiteral("Text Files (*.txt;*.bat;*.dat;*.log;*.ini)")})
        .defaultSuffix(QStringLiteral("txt"))
        .accept(path("closing.txt"));
    suite.choose("mnuFileClose");
    EXPECT_EQ(Files::read(path("closing.txt")), QByteArray("plain words"));
}

TEST_F(DocumentTest, ClosingAsksAboutAnExistingNameToo)
{
    for (const char *name : {"a.rtf", "a.txt"}) {
        const bool isRtf = QByteArray(name).endsWith("rtf");
        const char *title = isRtf ? "Save As RTF" : "Save As TXT";
        write(name, "old");
        suite.choose("mnuFileNew");
        suite.type(QStringLiteral("new"));
        saveQuestion(suite.active().Caption()).press(QMessageBox::Yes);
        rtfQuestion().press(isRtf ? QMessageBox::Yes : QMessageBox::No);
        if (!isRtf)
            textQuestion().press(QMessageBox::Yes);
        fileDialog(title).accept(path(name));
        box(title, QString::fromLatin1(name) + QStringLiteral(" already exists.\nDo you want to replace it?"))
            .press(QMessageBox::Yes);
        suite.choose("mnuFileClose");
        EXPECT_TRUE(Files::read(path(name)).contains("new")) << name;
    }
}

TEST_F(DocumentTest, AFileThatCannotBeWrittenAtClosingAsksForAnotherPlace)
{
    suite.type(QStringLiteral("precious"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::Yes);
    fileDialog("Save As RTF").accept(path("gone/a.rtf"));
    systemError(76, "Path not found");
    fileDialog("Save As RTF").accept(path("b.rtf"));
    suite.choose("mnuFileClose");
    EXPECT_TRUE(Files::read(path("b.rtf")).contains("precious"));
}

TEST_F(DocumentTest, TheActiveDocumentIsSavedWhileAnotherCloses)
{
    suite.type(QStringLiteral("first"));
    Form &first = suite.active();
    suite.choose("mnuFileNew");
    suite.type(QStringLiteral("second"));
    saveQuestion(QStringLiteral("Document 1")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::Yes);
    fileDialog("Save As RTF").accept(path("odd.rtf"));
    first.unload();
    EXPECT_EQ(suite.active().Caption(), path("odd.rtf"));
    EXPECT_TRUE(Files::read(path("odd.rtf")).contains("second"));
    closeUnsaved();
}

TEST_F(DocumentTest, OpensAFileUnderItsPath)
{
    open(write("a.rtf", boldRtf));
    EXPECT_EQ(suite.active().Caption(), path("a.rtf"));
    EXPECT_EQ(suite.text().Text(), QStringLiteral("plain bold"));
    suite.choose("mnuFileClose"); // a load is no change
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
}

TEST_F(DocumentTest, TheOpenDialogHasItsTitleAndFilters)
{
    fileDialog("Open")
        .filters({QStringLiteral("Rtf Files (*.rtf)"), QStringLiteral("Text Files (*.txt)"),
                  QStringLiteral("All Files (*.*)")})
        .folder(Paths::appPath() + QStringLiteral("/docs"))
        .cancel();
    suite.press("Open");
    EXPECT_EQ(suite.frame().dlgCommonDialog().DefaultExt, QStringLiteral("rtf"));
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
}

TEST_F(DocumentTest, TheSamePathIsRefusedAnotherSpellingIsNot)
{
    const QString name = write("a.rtf", boldRtf);
    open(name);
    fileDialog("Open").accept(name);
    box("File already open...", name + QStringLiteral(" is already open. Cannot load the same file twice!"))
        .icon(QMessageBox::Critical);
    suite.choose("mnuFileOpen");
    EXPECT_EQ(Forms::named(QStringLiteral("frmDocument")).size(), 2);
    const QString link = path("link.rtf");
    ASSERT_TRUE(QFile::link(name, link));
    open(link);
    EXPECT_EQ(suite.active().Caption(), link);
    EXPECT_EQ(Forms::named(QStringLiteral("frmDocument")).size(), 3);
}

TEST_F(DocumentTest, AFileThatCannotBeReadLeavesAnEmptyWindowWithItsPath)
{
    const QString name = path("pipe.rtf");
    ASSERT_EQ(::mkfifo(QFile::encodeName(name).constData(), 0600), 0);
    fileDialog("Open").accept(name);
    systemError(75, "Path/File access error");
    suite.choose("mnuFileOpen");
    EXPECT_EQ(suite.active().Caption(), name);
    EXPECT_EQ(suite.text().Text(), QString());
}

TEST_F(DocumentTest, TheLastThreeLettersChooseTheFormat)
{
    struct Row
    {
        const char *name;
        bool rich;
    };
    for (const Row &row : {Row{"a.rtf", true}, {"b.RTF", true}, {"c.rtf.txt", false}, {"d", false}}) {
        SCOPED_TRACE(row.name);
        open(write(row.name, boldRtf));
        suite.type(QStringLiteral("new "));
        suite.choose("mnusaveonly");
        EXPECT_EQ(Files::read(path(row.name)).startsWith("{\\rtf1"), row.rich);
        suite.choose("mnuFileClose"); // saved: nothing to ask
    }
}

TEST_F(DocumentTest, SavingAnUnnamedDocumentAsksForTheKind)
{
    suite.type(QStringLiteral("x"));
    box("Save as What...", QStringLiteral("Save as RTF or Text, Yes for RTF, No for Text"))
        .icon(QMessageBox::Question)
        .press(QMessageBox::Yes);
    fileDialog("Save As RTF").accept(path("what"));
    suite.choose("mnusaveonly");
    EXPECT_EQ(suite.active().Caption(), path("what.rtf"));
    EXPECT_TRUE(Files::read(path("what.rtf")).startsWith("{\\rtf1"));
    suite.choose("mnuFileClose");
}

TEST_F(DocumentTest, SavingAnUnnamedDocumentAsTextConfirms)
{
    suite.type(QStringLiteral("x"));
    box("Save as What...", QStringLiteral("Save as RTF or Text, Yes for RTF, No for Text"))
        .press(QMessageBox::No);
    textQuestion().press(QMessageBox::Yes);
    fileDialog("Save As TXT")
        .filters(
            {QStringLiteral("Text Files (*.txt;*.bat;*.dat;*.log;*.ini)"), QStringLiteral("Al Files (*.*)")})
        .folder(Paths::appPath() + QStringLiteral("/docs"))
        .accept(path("what.txt"));
    suite.press("Save");
    EXPECT_EQ(Files::read(path("what.txt")), QByteArray("x"));
}

TEST_F(DocumentTest, SaveAsTextKeepsTheFormattingOnScreen)
{
    open(write("a.rtf", boldRtf));
    textQuestion().press(QMessageBox::Yes);
    fileDialog("Save As TXT").accept(path("a.txt"));
    suite.choose("mnuFileSaveAs");
    EXPECT_EQ(Files::read(path("a.txt")), QByteArray("plain bold"));
    EXPECT_EQ(suite.active().Caption(), path("a.txt"));
    suite.text().setSelStart(8);
    EXPECT_EQ(suite.text().SelBold(), std::optional<bool>(true));
}

TEST_F(DocumentTest, ACancelledSaveDoesNothing)
{
    suite.type(QStringLiteral("x"));
    fileDialog("Save As RTF").cancel();
    suite.choose("mnuFileSave");
    textQuestion().press(QMessageBox::No);
    suite.choose("mnuFileSaveAs");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
    closeUnsaved();
}

TEST_F(DocumentTest, SaveAsRtfBeginsInNoFolderOfItsOwn)
{
    textQuestion().press(QMessageBox::Yes);
    fileDialog("Save As TXT").cancel();
    suite.choose("mnuFileSaveAs");
    EXPECT_FALSE(suite.frame().dlgCommonDialog().InitDir.isEmpty());
    fileDialog("Save As RTF").cancel();
    suite.choose("mnuFileSave");
    EXPECT_EQ(suite.frame().dlgCommonDialog().InitDir, QString());
}

TEST_F(DocumentTest, AnExistingNameIsAskedAbout)
{
    write("a.rtf", "old");
    suite.type(QStringLiteral("x"));
    fileDialog("Save As RTF").accept(path("a.rtf"));
    suite.dialogs
        .expectBox(QStringLiteral("Save As RTF"),
                   QStringLiteral("a.rtf already exists.\nDo you want to replace it?"))
        .press(QMessageBox::Yes);
    suite.choose("mnuFileSave");
    EXPECT_TRUE(Files::read(path("a.rtf")).startsWith("{\\rtf1"));
}

TEST_F(DocumentTest, AFailedSaveAsKeepsTheChangesUnsavedAndTheOldFileWhole)
{
    write("a.rtf", "old");
    suite.text().setText(QString(9000, u'x'));
    fileDialog("Save As RTF").accept(path("a.rtf"));
    suite.dialogs
        .expectBox(QStringLiteral("Save As RTF"),
                   QStringLiteral("a.rtf already exists.\nDo you want to replace it?"))
        .press(QMessageBox::Yes);
    systemError(61, "Disk full");
    {
        const FullDisk full(4096);
        suite.choose("mnuFileSave");
    }
    EXPECT_EQ(Files::read(path("a.rtf")), QByteArray("old"));
    EXPECT_EQ(suite.text().Text().size(), 9000);
    closeUnsaved();
}

TEST_F(DocumentTest, ASaveIntoAReadOnlyFolderKeepsTheChangesUnsaved)
{
    ASSERT_TRUE(QDir().mkdir(path("locked")));
    const AsUser user(suite.home.path());
    ASSERT_TRUE(QFile::setPermissions(path("locked"), QFile::ReadOwner | QFile::ExeOwner));
    suite.type(QStringLiteral("words"));
    fileDialog("Save As RTF").accept(path("locked/a.rtf"));
    systemError(70, "Permission denied");
    suite.choose("mnuFileSave");
    EXPECT_EQ(suite.active().Caption(), path("locked/a.rtf"));
    EXPECT_EQ(suite.text().Text(), QStringLiteral("words"));

    // Closing it asks, and asks for another name until there is a file.
    saveQuestion(path("locked/a.rtf")).press(QMessageBox::Yes);
    rtfQuestion().press(QMessageBox::Yes);
    fileDialog("Save As RTF").accept(path("locked/b.rtf"));
    systemError(70, "Permission denied");
    fileDialog("Save As RTF").accept(path("b.rtf"));
    suite.choose("mnuFileClose");
    EXPECT_TRUE(Files::read(path("b.rtf")).contains("words"));
    EXPECT_TRUE(QDir(path("locked")).isEmpty());
}

TEST_F(DocumentTest, AFailedSaveIsAnUntrappedError)
{
    open(write("a.txt", "old"));
    suite.type(QStringLiteral("new "));
    ASSERT_TRUE(QFile::remove(path("a.txt")));
    ASSERT_TRUE(QDir().mkdir(path("a.txt")));
    suite.fatal.expect(75);
    suite.choose("mnusaveonly");
    closeUnsaved();
}

TEST_F(DocumentTest, AFileRemovedBehindTheSuiteIsWrittenAnew)
{
    open(write("a.txt", "old"));
    ASSERT_TRUE(QFile::remove(path("a.txt")));
    suite.type(QStringLiteral("new "));
    suite.choose("mnusaveonly");
    EXPECT_EQ(Files::read(path("a.txt")), QByteArray("new old"));
}

TEST_F(DocumentTest, ATextFileKeepsItsLineEnds)
{
    open(write("dos.txt", "one\r\ntwo\r\n"));
    suite.type(QStringLiteral("x"));
    suite.choose("mnusaveonly");
    EXPECT_EQ(Files::read(path("dos.txt")), QByteArray("xone\r\ntwo\r\n"));
}

TEST_F(DocumentTest, APathThatBeginsWithDocumentAsksAgain)
{
    suite.type(QStringLiteral("x"));
    suite.active().setCaption(QStringLiteral("Documents/a.rtf"));
    box("Save as What...", QStringLiteral("Save as RTF or Text, Yes for RTF, No for Text"))
        .press(QMessageBox::Yes);
    fileDialog("Save As RTF").cancel();
    suite.choose("mnusaveonly");
    closeUnsaved();
}

TEST_F(DocumentTest, TheMenusDocumentsAreFreshAndThoseOfTheToolbarAreNot)
{
    suite.frame().files().mnuFileNew_Click();
    EXPECT_TRUE(freshDocument);
    freshDocument = false;
    suite.frame().LoadNewDoc();
    EXPECT_FALSE(freshDocument);
    open(write("a.rtf", boldRtf));
    EXPECT_FALSE(suite.active().isWindowModified());
}

TEST_F(DocumentTest, ADocumentIsFreshUntilItHasTheFocusThatOpeningItBrings)
{
    suite.frame().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&suite.frame()));
    suite.choose("mnuFileNew");
    EXPECT_FALSE(freshDocument);
    suite.type(QStringLiteral("x"));
    Q_EMIT suite.text().GotFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(suite.active().isWindowModified());
    closeUnsaved();
}

TEST_F(DocumentTest, FocusClearsTheDirtyStateOfAFreshDocument)
{
    Q_EMIT suite.text().Change();
    suite.choose("mnuWindowNewWindow");
    freshDocument = true;
    suite.choose("mnuFileClose"); // the focus comes back to Document 1
    EXPECT_FALSE(freshDocument);
    suite.choose("mnuFileClose");
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
}

TEST_F(DocumentTest, AnEditThatRaisedNoEventIsSeenByItsLength)
{
    suite.type(QStringLiteral("x"));
    suite.active().call(QStringLiteral("unDirty"));
    closeUnsaved();
}

TEST_F(DocumentTest, ClosingUnsavedOnlyAsksWhatChanged)
{
    suite.type(QStringLiteral("x"));
    suite.active().call(QStringLiteral("doclengthupdate"));
    suite.choose("mnuFileClose");
    EXPECT_EQ(suite.frame().ActiveForm(), nullptr);
}

TEST_F(DocumentTest, ALinkOpensWithTheDesktopsHandler)
{
    UrlCatcher urls;
    suite.text().setText(QStringLiteral("see www.example.org now"));
    suite.text().setSelStart(0);
    Q_EMIT suite.text().LinkClicked(4, 19);
    EXPECT_EQ(urls.opened(), QList<QUrl>({QUrl(QStringLiteral("http://www.example.org"))}));
    EXPECT_EQ(suite.text().SelStart(), 0);
    closeUnsaved();
}

TEST_F(DocumentTest, AClickOnAnAddressOpensIt)
{
    UrlCatcher urls;
    RichTextBox &text = suite.text();
    text.setText(QStringLiteral("www.example.org"));
    const auto click = [&] {
        QTextCursor place(text.document());
        place.setPosition(3);
        QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, text.cursorRect(place).center());
    };
    click();
    EXPECT_EQ(urls.opened().size(), 1);
    suite.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        click(); // no address any more once it closes
        box.button(QMessageBox::No)->click();
    });
    suite.choose("mnuFileClose");
    EXPECT_EQ(urls.opened().size(), 1);
}

TEST_F(DocumentTest, TheRightMarginIsTheControlsEdge)
{
    constexpr int twipsPerPixel = 15;
    for (const int width : {500, 300}) {
        suite.active().resize(width, 300);
        EXPECT_EQ(suite.text().RightMargin(), width * twipsPerPixel - 4);
    }
}

TEST_F(DocumentTest, ANarrowWindowCutsTheControl)
{
    Form &document = suite.active();
    document.resize(8, 100);
    EXPECT_EQ(suite.text().width(), 13); // 200 twips
    document.resize(500, 300);
    EXPECT_EQ(suite.text().width(), 500);
    EXPECT_EQ(suite.text().height(), 300);
}

TEST_F(DocumentTest, CloseClosesAToolToo)
{
    Forms::registerWindow(QStringLiteral("frmStandIn"), Forms::Instances::One,
                          [] { return new StandInTool(QStringLiteral("frmStandIn")); });
    Forms::refer(QStringLiteral("frmStandIn")).showModeless();
    suite.choose("mnuFileClose");
    EXPECT_TRUE(Forms::named(QStringLiteral("frmStandIn")).isEmpty());
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 1"));
}

TEST_F(DocumentTest, CommandsWithoutADocumentDoNothing)
{
    suite.choose("mnuFileClose");
    for (const char *name : {"mnuFileClose", "mnusaveonly", "mnuFileSave"})
        suite.choose(name);
    textQuestion().press(QMessageBox::Yes);
    suite.choose("mnuFileSaveAs");
}

class DocumentNameTest : public DocumentTest, public testing::WithParamInterface<HostileName>
{};

TEST_P(DocumentNameTest, IsShownAsItIs)
{
    const QString name = suite.home.file(GetParam().text());
    suite.type(QStringLiteral("x"));
    suite.active().setCaption(name);
    EXPECT_EQ(suite.active().parentWidget()->windowTitle(), name + QStringLiteral("*"));
    suite.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        EXPECT_EQ(box.windowTitle(), QString::fromLatin1(saveChanges));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(SeenDialog::of(box).text, QStringLiteral("Save Changes to ") + ShownText::lines(name));
        box.button(QMessageBox::No)->click();
    });
    suite.choose("mnuFileClose");
}

INSTANTIATE_TEST_SUITE_P(Names, DocumentNameTest, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

class DocumentFileTest : public DocumentTest, public testing::WithParamInterface<HostileName>
{};

TEST_P(DocumentFileTest, IsSavedUnderItsName)
{
    const ScratchFolder folder;
    folder.addFile(GetParam().bytes, "one");
    const QString name = FileNames::fromBytes(folder.file(GetParam().bytes));
    suite.text().LoadFile(name);
    suite.active().setCaption(name);
    suite.type(QStringLiteral("x"));
    suite.choose("mnusaveonly");
    EXPECT_EQ(suite.active().Caption(), name);
    EXPECT_TRUE(Files::read(name).contains("xone"));
}

INSTANTIATE_TEST_SUITE_P(Names, DocumentFileTest, testing::ValuesIn(HostileNames::files()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
