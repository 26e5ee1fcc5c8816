#include "EntryRoutine.h"
#include "EventGate.h"
#include "Files.h"
#include "Folder.h"
#include "ForkedTask.h"
#include "Forms.h"
#include "FullDisk.h"
#include "Globals.h"
#include "HostileNames.h"
#include "RecoveryFolder.h"
#include "RunningSuite.h"
#include "ScratchFolder.h"
#include "frmDocument.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>

namespace {

constexpr int patience = 20000; // milliseconds

QString onlyCopy()
{
    const QDir folder(RecoveryFolder::path());
    const QStringList names = folder.entryList({QStringLiteral("copy-??????")}, QDir::Files);
    return names.size() == 1 ? folder.filePath(names.front()) : QString();
}

/// What the copies hold at the moment, whether or not their locks are held.
QByteArray kept()
{
    const QString path = onlyCopy();
    return path.isEmpty() ? QByteArray() : Files::read(path);
}

bool waitForKept(const char *words)
{
    return QTest::qWaitFor([&] { return kept().contains(words); }, patience);
}

QStringList allFiles()
{
    return QDir(RecoveryFolder::path()).entryList({QStringLiteral("copy-*")}, QDir::Files);
}

/// The one process that this thread has started; 0 when there is none.
pid_t childProcess()
{
    return Files::read(QStringLiteral("/proc/thread-self/children")).trimmed().toInt();
}

void leaveBehind(const QString &caption, const QByteArray &words,
                 PlainText::LineEnd lineEnd = PlainText::LineEnd::Lf)
{
    const auto copy = RecoveryFolder::makeCopy();
    ASSERT_TRUE(copy->write({caption, lineEnd, "{\\rtf1\\ansi " + words + "}"}));
}

QString newestCopy()
{
    const QDir folder(RecoveryFolder::path());
    return folder.filePath(
        folder.entryList({QStringLiteral("copy-??????")}, QDir::Files, QDir::Time).front());
}

/// What is left behind next is newer than the newest copy; file times are coarse.
void waitForNextFileTime()
{
    const QString probe = RecoveryFolder::path() + QStringLiteral("/probe");
    const QDateTime newest = QFileInfo(newestCopy()).lastModified();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        Files::write(probe, "x");
        return QFileInfo(probe).lastModified() > newest;
    }));
    EXPECT_TRUE(QFile::remove(probe));
}

/// From now on a document that is given a text with \a words ends the process, as a fault of the reader does.
void crashAt(const QString &words)
{
    Forms::registerWindow(QStringLiteral("frmDocument"), Forms::Instances::Many, [words] {
        auto *document = new frmDocument;
        const auto &text = document->member<RichTextBox>(QStringLiteral("rtfTextBox"));
        on(&text, &RichTextBox::Change, document, [&text, words] {
            if (text.Text().contains(words))
                ::raise(SIGKILL);
        });
        return document;
    });
}

struct RecoveryTest : testing::Test
{
    RunningSuite suite;

    /// What the status bar says beside its panels.
    QString notice() const
    {
        const auto *label = suite.frame().findChild<QLabel *>(QStringLiteral("lblNotice"));
        return label->isVisible() ? label->text() : QString();
    }
    QTimer &timer() const { return *suite.active().findChild<QTimer *>(QStringLiteral("tmrRecovery")); }
    /// Nothing is kept by itself from now on.
    void stopTheClock() const { timer().setInterval(1000 * patience); }
    void hurry() const { timer().setInterval(1); }
    /// Ends the suite without a question, as a kill does, and starts it again.
    static void restart()
    {
        delete mainFrame;
        EntryRoutine();
    }
    static QList<Form *> documents() { return Forms::named(QStringLiteral("frmDocument")); }
    static QString textOf(const Form &document)
    {
        return document.member<RichTextBox>(QStringLiteral("rtfTextBox")).Text();
    }
};

} // namespace

TEST_F(RecoveryTest, AnUntouchedDocumentIsNotKept)
{
    EXPECT_FALSE(timer().isActive());
    suite.fatal.expectEnd(EXIT_SUCCESS);
    EventGate::end(EXIT_SUCCESS);
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, AChangedDocumentIsKeptAfterSomeSeconds)
{
    EXPECT_GE(timer().interval(), 1000);
    EXPECT_LE(timer().interval(), 10000);
    hurry();
    suite.type(QStringLiteral("first"));
    ASSERT_TRUE(waitForKept("first"));
    EXPECT_TRUE(kept().contains("Document 1"));
    suite.type(QStringLiteral(" second"));
    EXPECT_TRUE(waitForKept("first second"));
}

TEST_F(RecoveryTest, TypingWithoutAPauseIsKeptToo)
{
    timer().setInterval(200);
    bool isKept = false;
    for (QDeadlineTimer end(patience); !isKept && !end.hasExpired(); QTest::qWait(20)) {
        suite.type(QStringLiteral("x"));
        isKept = kept().contains("xxx");
    }
    EXPECT_TRUE(isKept);
}

TEST_F(RecoveryTest, ASavedDocumentIsKeptNoLonger)
{
    const QString path = suite.home.file(QStringLiteral("letter.rtf"));
    hurry();
    suite.type(QStringLiteral("words"));
    ASSERT_TRUE(waitForKept("words"));
    suite.dialogs.expectFileDialog(QStringLiteral("Save As RTF")).accept(path);
    suite.choose("mnuFileSave");
    EXPECT_TRUE(Files::read(path).contains("words"));
    EXPECT_TRUE(allFiles().isEmpty());
    suite.type(QStringLiteral(" and more"));
    ASSERT_TRUE(waitForKept("words and more"));
    EXPECT_TRUE(kept().contains("letter.rtf"));
    suite.choose("mnusaveonly");
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, AWriteThatFailedIsMadeUpForAtTheEnd)
{
    hurry();
    suite.type(QStringLiteral("words"));
    {
        const FullDisk disk(0);
        ASSERT_TRUE(QSignalSpy(&timer(), &QTimer::timeout).wait()); // the write that begins now fails
    }
    EXPECT_FALSE(kept().contains("words"));
    suite.fatal.expectEnd(EXIT_FAILURE);
    EventGate::end(EXIT_FAILURE);
    EXPECT_TRUE(kept().contains("words"));
}

TEST_F(RecoveryTest, ADocumentClosedUnsavedIsKeptNoLonger)
{
    hurry();
    suite.type(QStringLiteral("words"));
    ASSERT_TRUE(waitForKept("words"));
    suite.dialogs.expectBox(QStringLiteral("Save Changes?..."), QStringLiteral("Save Changes to Document 1"))
        .press(QMessageBox::No);
    suite.choose("mnuFileClose");
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, ASaveStopsAWriteThatIsUnderWay)
{
    hurry();
    const QString path = suite.home.file(QStringLiteral("long.rtf"));
    suite.text().setText(QStringLiteral("a long document\n").repeated(100000));
    ASSERT_TRUE(QTest::qWaitFor([] { return childProcess() != 0; }, patience));
    const pid_t writing = childProcess();
    ASSERT_EQ(::kill(writing, SIGSTOP), 0); // in the middle
    suite.dialogs.expectFileDialog(QStringLiteral("Save As RTF")).accept(path);
    suite.choose("mnuFileSave");
    EXPECT_EQ(::kill(writing, SIGCONT), -1) << "it would write the copy of a saved document";
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, AFullDiskDisturbsNoTypingAndLosesNoCopy)
{
    hurry();
    suite.type(QStringLiteral("first"));
    ASSERT_TRUE(waitForKept("first"));
    const QByteArray before = kept();
    {
        const FullDisk disk(qlonglong(before.size()) / 2);
        QSignalSpy ticks(&timer(), &QTimer::timeout);
        suite.type(QStringLiteral(" second"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.size() >= 6; }, patience)); // several writes fail
        suite.type(QStringLiteral(" third"));
        EXPECT_EQ(suite.text().Text(), QStringLiteral("first second third"));
        EXPECT_EQ(kept(), before);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return allFiles().size() == 2; }, patience)) // the copy and its lock
            << qUtf8Printable(allFiles().join(u' '));
        EXPECT_TRUE(suite.dialogs.seen().isEmpty());
        EXPECT_EQ(notice(), QString());
    }
    EXPECT_TRUE(waitForKept("first second third"));
}

TEST_F(RecoveryTest, AFileThatCouldNotBeSavedIsKept)
{
    stopTheClock();
    suite.type(QStringLiteral("words"));
    const ScratchFolder folder;
    const QString path = folder.path() + QStringLiteral("/absent/letter.rtf");
    suite.active().setCaption(path);
    suite.fatal.expect(ErrorNumber::PathNotFound); // as a failed save ends the suite
    suite.choose("mnusaveonly");
    EXPECT_TRUE(kept().contains("words"));
    EXPECT_TRUE(kept().contains(path.toUtf8()));
}

TEST_F(RecoveryTest, TheErrorBoxFindsEverythingKept)
{
    stopTheClock();
    suite.type(QStringLiteral("one"));
    suite.choose("mnuFileNew");
    stopTheClock();
    suite.type(QStringLiteral("two"));
    qsizetype copies = 0;
    EventGate::setBox([&](int, const QString &) {
        copies = QDir(RecoveryFolder::path()).entryList({QStringLiteral("copy-??????")}, QDir::Files).size();
    });
    EventGate::fail(ErrorNumber::TypeMismatch, {});
    EXPECT_EQ(copies, 2);
}

TEST_F(RecoveryTest, AnEndWithoutABoxFindsEverythingKept)
{
    stopTheClock();
    suite.type(QStringLiteral("one"));
    suite.fatal.expectEnd(EXIT_FAILURE);
    EventGate::end(EXIT_FAILURE);
    EXPECT_TRUE(kept().contains("one"));
}

TEST_F(RecoveryTest, ANewNameIsKept)
{
    hurry();
    suite.type(QStringLiteral("words"));
    ASSERT_TRUE(waitForKept("Document 1"));
    suite.active().setCaption(QStringLiteral("/home/me/letter.rtf"));
    EXPECT_TRUE(waitForKept("/home/me/letter.rtf"));
}

TEST_F(RecoveryTest, AFolderThatCannotBeUsedIsHarmless)
{
    QDir(suite.home.path()).mkpath(QStringLiteral(".local"));
    const QString state = suite.home.file(QStringLiteral(".local/state"));
    Files::write(state, "a file");
    hurry();
    suite.type(QStringLiteral("words"));
    EXPECT_TRUE(timer().isActive());
    QSignalSpy ticks(&timer(), &QTimer::timeout);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.size() > 2; }, patience));
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
    ASSERT_TRUE(QFile::remove(state));
    EXPECT_TRUE(waitForKept("words")); // as soon as it can be
}

TEST_F(RecoveryTest, AfterAnEndTheTextIsBack)
{
    hurry();
    suite.type(QStringLiteral("words"));
    ASSERT_TRUE(waitForKept("words"));
    const QString path = onlyCopy();
    restart();
    ASSERT_EQ(documents().size(), 2);
    EXPECT_EQ(documents().front()->Caption(), QStringLiteral("Document 1"));
    EXPECT_EQ(textOf(*documents().front()), QString());
    EXPECT_EQ(textOf(*documents().back()), QStringLiteral("words"));
    EXPECT_EQ(notice(), QStringLiteral("1 document recovered from the last run."));
    EXPECT_EQ(onlyCopy(), path); // until it is saved or closed
    restart();
    EXPECT_EQ(documents().size(), 2);
}

TEST_F(RecoveryTest, RecoveredDocumentsCountAsChanged)
{
    leaveBehind(QStringLiteral("/gone/letter.rtf"), "letter");
    restart();
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("/gone/letter.rtf"));
    suite.dialogs
        .expectBox(QStringLiteral("Save Changes?..."), QStringLiteral("Save Changes to /gone/letter.rtf"))
        .press(QMessageBox::No);
    suite.choose("mnuFileClose");
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, AnEmptyRecoveredDocumentAsksToo)
{
    ASSERT_TRUE(RecoveryFolder::makeCopy()->write(
        {QStringLiteral("/home/me/emptied.rtf"), PlainText::LineEnd::Lf, suite.text().TextRTF()}));
    restart();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&suite.frame()));
    freshDocument = true; // as File, New leaves it
    suite.text().clearFocus();
    suite.text().setFocus();
    ASSERT_TRUE(QTest::qWaitFor([] { return !freshDocument; })); // a change is not known any more
    suite.dialogs
        .expectBox(QStringLiteral("Save Changes?..."), QStringLiteral("Save Changes to /home/me/emptied.rtf"))
        .press(QMessageBox::No);
    suite.choose("mnuFileClose");
}

TEST_F(RecoveryTest, TheOldestIsOpenedFirstAndAllAreCounted)
{
    leaveBehind(QStringLiteral("/a.rtf"), "a");
    waitForNextFileTime();
    leaveBehind(QStringLiteral("/b.rtf"), "b");
    restart();
    ASSERT_EQ(documents().size(), 3);
    EXPECT_EQ(documents().at(1)->Caption(), QStringLiteral("/a.rtf"));
    EXPECT_EQ(documents().at(2)->Caption(), QStringLiteral("/b.rtf"));
    EXPECT_NE(documents().at(1)->parentWidget()->pos(), documents().at(0)->parentWidget()->pos());
    EXPECT_NE(documents().at(2)->parentWidget()->pos(), documents().at(1)->parentWidget()->pos());
    EXPECT_TRUE(suite.frame().findChild<QWidget *>(QStringLiteral("panel_1"))->isVisible());
    EXPECT_EQ(notice(), QStringLiteral("2 documents recovered from the last run."));
    EXPECT_TRUE(suite.dialogs.seen().isEmpty());
}

TEST_F(RecoveryTest, NoNewDocumentGetsTheNumberOfARecoveredOne)
{
    leaveBehind(QStringLiteral("Document 3"), "third");
    restart();
    EXPECT_EQ(documents().front()->Caption(), QStringLiteral("Document 1"));
    EXPECT_EQ(documents().back()->Caption(), QStringLiteral("Document 3"));
    suite.choose("mnuFileNew");
    EXPECT_EQ(suite.active().Caption(), QStringLiteral("Document 4"));
}

TEST_F(RecoveryTest, APlainFileKeepsItsLineEnds)
{
    const QString path = suite.home.file(QStringLiteral("notes.txt"));
    Files::write(path, "one\r\ntwo\r\n");
    suite.dialogs.expectFileDialog(QStringLiteral("Open")).accept(path);
    suite.choose("mnuFileOpen");
    hurry();
    suite.type(QStringLiteral("zero "));
    ASSERT_TRUE(waitForKept("zero one"));
    ASSERT_TRUE(QFile::remove(path)); // and the file may be missing
    restart();
    EXPECT_EQ(suite.active().Caption(), path);
    suite.choose("mnusaveonly");
    EXPECT_EQ(Files::read(path), "zero one\r\ntwo\r\n");
    EXPECT_TRUE(allFiles().isEmpty());
}

TEST_F(RecoveryTest, ARecoveredFileIsNotOpenedTwice)
{
    const QString path = suite.home.file(QStringLiteral("notes.txt"));
    Files::write(path, "as it is on disk");
    leaveBehind(path, "as it was typed");
    restart();
    suite.dialogs.expectFileDialog(QStringLiteral("Open")).accept(path);
    suite.dialogs
        .expectBox(QStringLiteral("File already open..."),
                   path + QStringLiteral(" is already open. Cannot load the same file twice!"))
        .press(QMessageBox::Ok);
    suite.choose("mnuFileOpen");
    EXPECT_EQ(documents().size(), 2);
}

TEST_F(RecoveryTest, ADocumentThatClosesWhileTheActiveOneIsSavedIsKept)
{
    suite.type(QStringLiteral("of the first"));
    suite.choose("mnuFileNew");
    suite.type(QStringLiteral("of the second"));
    const ScratchFolder folder;
    suite.dialogs.expectBox(QStringLiteral("Save Changes?..."), QStringLiteral("Save Changes to Document 1"))
        .press(QMessageBox::Yes);
    suite.dialogs
        .expectBox(QStringLiteral("Save as RTF?..."),
                   QStringLiteral("Save as RTF? Yes to save as RTF format No to save in Plain Text."))
        .press(QMessageBox::Yes);
    suite.dialogs.expectFileDialog(QStringLiteral("Save As RTF"))
        .accept(Folder::join(folder.path(), QStringLiteral("second.rtf")));
    documents().first()->unload();
    ASSERT_EQ(documents().size(), 1);
    EXPECT_EQ(textOf(*documents().first()), QStringLiteral("of the second"));
    EXPECT_TRUE(kept().contains("of the first"));
    restart();
    EXPECT_EQ(textOf(suite.active()), QStringLiteral("of the first"));
}

TEST_F(RecoveryTest, ADamagedCopyIsLeftAsItIs)
{
    leaveBehind(QStringLiteral("/b.rtf"), "b");
    const QString path = onlyCopy();
    Files::write(path, "not a copy");
    restart();
    EXPECT_EQ(documents().size(), 1);
    EXPECT_EQ(
        notice(),
        QStringLiteral("1 document could not be recovered; its copy is in %1.").arg(RecoveryFolder::path()));
    EXPECT_EQ(Files::read(path), "not a copy");
}

TEST_F(RecoveryTest, ACopyCutShortGivesWhatCanBeRead)
{
    ASSERT_TRUE(RecoveryFolder::makeCopy()->write(
        {QStringLiteral("/cut.rtf"), PlainText::LineEnd::Lf, "{\\rtf1 the begin"}));
    restart();
    EXPECT_EQ(textOf(suite.active()), QStringLiteral("the begin"));
}

TEST_F(RecoveryTest, ACopyThatMakesTheSuiteCrashIsNotOpenedAgain)
{
    leaveBehind(QStringLiteral("/a.rtf"), "a");
    waitForNextFileTime();
    leaveBehind(QStringLiteral("/fatal.rtf"), "fatal");
    const QString fatal = newestCopy();
    const QByteArray content = Files::read(fatal);
    waitForNextFileTime();
    leaveBehind(QStringLiteral("/b.rtf"), "b");
    for (int start = 0; start < 2; ++start) { // the first may have been a power cut
        ForkedTask crashing;
        ASSERT_TRUE(crashing.start([] {
            crashAt(QStringLiteral("fatal"));
            restart();
            return true;
        }));
        ASSERT_FALSE(crashing.wait());
    }

    for (int start = 0; start < 2; ++start) {
        restart();
        ASSERT_EQ(documents().size(), 3);
        EXPECT_EQ(documents().at(1)->Caption(), QStringLiteral("/a.rtf"));
        EXPECT_EQ(documents().at(2)->Caption(), QStringLiteral("/b.rtf"));
        EXPECT_EQ(notice(), QStringLiteral(
                                "2 documents recovered from the last run. 1 document could not be recovered; "
                                "its copy is in %1.")
                                .arg(RecoveryFolder::path()));
        EXPECT_EQ(Files::read(fatal), content);
    }
}

TEST_F(RecoveryTest, ACopyThatHasOpenedIsOpenedAgain)
{
    leaveBehind(QStringLiteral("/a.rtf"), "a");
    for (int start = 0; start < 3; ++start) {
        restart();
        ASSERT_EQ(documents().size(), 2);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return allFiles().size() == 2; }, patience)) // the copy and its lock
            << qUtf8Printable(allFiles().join(u' '));
    }
}

TEST_F(RecoveryTest, ItIsSaidWhereSeveralCopiesAreThatCannotBeOpened)
{
    for (int i = 0; i < 2; ++i) {
        const auto copy = RecoveryFolder::makeCopy();
        ASSERT_TRUE(copy->write({QStringLiteral("/fatal.rtf"), PlainText::LineEnd::Lf, "{\\rtf1 fatal}"}));
        copy->beginOpening();
        copy->beginOpening();
    }
    restart();
    EXPECT_EQ(documents().size(), 1);
    EXPECT_EQ(notice(), QStringLiteral("2 documents could not be recovered; their copies are in %1.")
                            .arg(RecoveryFolder::path()));
}

class RecoveredName : public RecoveryTest, public testing::WithParamInterface<HostileName>
{};

TEST_P(RecoveredName, IsTheCaptionAgain)
{
    const QString caption = QStringLiteral("/gone/") + GetParam().text();
    leaveBehind(caption, "words");
    restart();
    EXPECT_EQ(suite.active().Caption(), caption);
    EXPECT_EQ(textOf(suite.active()), QStringLiteral("words"));
    EXPECT_EQ(notice(), QStringLiteral("1 document recovered from the last run."));
}

INSTANTIATE_TEST_SUITE_P(Names, RecoveredName, testing::ValuesIn(HostileNames::all()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);
