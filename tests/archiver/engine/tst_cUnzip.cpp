#include "ArchiveMaker.h"
#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchFolder.h"
#include "USERFUNCTION.h"
#include "UnzipResult.h"
#include "Version.h"
#include "ZipRun.h"
#include "cUnzip.h"
#include "mUnzip.h"

#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

MadeEntry entry(const QByteArray &name, const QByteArray &data)
{
    MadeEntry made;
    made.name = name;
    made.data = data;
    return made;
}

struct cUnzipTest : testing::Test
{
    ScratchFolder scratch;
    cUnzip unzip;
    QStringList messages;

    cUnzipTest()
    {
        unzip.setZipFile(path("a.zip"));
        unzip.setUnzipFolder(path("out"));
        unzip.setUseFolderNames(true);
        on(&unzip, &cUnzip::Progress, &unzip, [this](int, const QString &text) { messages.append(text); });
    }

    QString path(const char *name) const { return QString::fromUtf8(scratch.file(name)); }
    void make(const QList<MadeEntry> &entries) const
    {
        scratch.addFile("a.zip", ArchiveMaker::make(entries));
    }
    void encrypt() const
    {
        scratch.addFile("plain", "plain");
        scratch.addFile("secret", "secret");
        ZipRun job;
        job.options.fJunkDir = 1;
        ASSERT_EQ(job.run(scratch.file("a.zip"), {scratch.file("plain")}), ZipResult::Success);
        job.options.fEncrypt = 1;
        job.passwords = {"key", "key"};
        ASSERT_EQ(job.run(scratch.file("a.zip"), {scratch.file("secret")}), ZipResult::Success);
    }
    QMap<QByteArray, QByteArray> files() const { return FolderContent::filesOf(scratch.file("out")); }
};

/// The callbacks of one job, called as the library calls them.
struct mUnzipTest : cUnzipTest
{
    USERFUNCTION callbacks = mUnzip::callbacksOf(unzip);

    void list(const ListedEntry &entry)
    {
        unzip.setZipFile({});
        callbacks.message(entry);
    }
};

ListedEntry listed(const QByteArray &name)
{
    ListedEntry entry;
    entry.fname = name;
    entry.yr = 2004;
    entry.mo = 3;
    entry.dy = 12;
    entry.hh = 9;
    entry.mm = 40;
    return entry;
}

} // namespace

TEST_F(cUnzipTest, KeepsProperties)
{
    const struct
    {
        bool (cUnzip::*get)() const;
        void (cUnzip::*set)(bool);
    } properties[] = {
        {&cUnzip::ExtractOnlyNewer, &cUnzip::setExtractOnlyNewer},
        {&cUnzip::SpaceToUnderScore, &cUnzip::setSpaceToUnderScore},
        {&cUnzip::PromptToOverwrite, &cUnzip::setPromptToOverwrite},
        {&cUnzip::TestZip, &cUnzip::setTestZip},
        {&cUnzip::UseFolderNames, &cUnzip::setUseFolderNames},
        {&cUnzip::OverwriteExisting, &cUnzip::setOverwriteExisting},
        {&cUnzip::ConvertCRtoCRLF, &cUnzip::setConvertCRtoCRLF},
        {&cUnzip::CaseSensitiveFileNames, &cUnzip::setCaseSensitiveFileNames},
    };
    for (const auto &property : properties) {
        for (const bool value : {true, false}) {
            (unzip.*property.set)(value);
            EXPECT_EQ((unzip.*property.get)(), value) << &property - properties;
        }
    }
    unzip.setMessageLevel(2);
    EXPECT_EQ(unzip.MessageLevel(), 2);
}

TEST_F(cUnzipTest, ListsFilesAndNoFolders)
{
    MadeEntry stored = entry("dir/a.txt", "12345");
    stored.flags = 1;
    make({entry("dir/", {}), stored, entry("b", QByteArray(10, 'b'))});
    EXPECT_EQ(unzip.Directory(), UnzipResult::Success);
    ASSERT_EQ(unzip.FileCount(), 2);
    EXPECT_EQ(unzip.FileName(1), QStringLiteral("a.txt"));
    EXPECT_EQ(unzip.FileDirectory(1), QStringLiteral("dir"));
    EXPECT_EQ(unzip.FileDirectory(2), QString());
    EXPECT_EQ(unzip.FileSize(2), 10);
    EXPECT_EQ(unzip.FileCompressionRatio(2), 0);
    EXPECT_EQ(unzip.FilePackedSize(2), 0);
    EXPECT_EQ(unzip.FileCompressionMethod(2), QStringLiteral("Stored"));
    EXPECT_TRUE(unzip.FileEncrypted(1));
    EXPECT_FALSE(unzip.FileEncrypted(2));
    EXPECT_TRUE(unzip.FileSelected(1));
    EXPECT_NE(unzip.FileCRC(1), unzip.FileCRC(2));
    EXPECT_EQ(errorNumberOf([this] { unzip.FileName(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([this] { unzip.FileName(3); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(cUnzipTest, WritingTheNameEmptiesTheTable)
{
    make({entry("a", "1")});
    unzip.Directory();
    EXPECT_EQ(unzip.FileCount(), 1);
    unzip.setZipFile(unzip.ZipFile());
    EXPECT_EQ(unzip.FileCount(), 0);
}

TEST_F(cUnzipTest, ExtractsAllWhereAllIsSelected)
{
    make({entry("a", "1"), entry("empty/", {})});
    unzip.Directory();
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"a", "1"}}));
    EXPECT_TRUE(
        std::filesystem::is_directory(scratch.file("out/empty").toStdString())); // which no record names
    EXPECT_TRUE(messages.contains(QStringLiteral("   creating: empty\\")));
}

TEST_F(cUnzipTest, ExtractsWhatIsSelected)
{
    make({entry("a", "1"), entry("sub/deep/b", "2"), entry("sub/c", "3"), entry("empty/", {})});
    unzip.Directory();
    unzip.setFileSelected(1, false);
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"sub/deep/b", "2"}, {"sub/c", "3"}}));
    EXPECT_FALSE(std::filesystem::exists(scratch.file("out/empty").toStdString()));
}

TEST_F(cUnzipTest, ReturnsTrueWhereItFailed)
{
    scratch.addFile("a.zip", "no archive");
    EXPECT_TRUE(unzip.unzip());
    EXPECT_EQ(unzip.Directory(), UnzipResult::NoArchive);
    EXPECT_EQ(unzip.FileCount(), 0);
    unzip.setZipFile({});
    EXPECT_FALSE(unzip.unzip());
}

TEST_F(cUnzipTest, TakesSoManySelectedFilesAndNoMore)
{
    QList<MadeEntry> entries;
    for (int i = 0; i < 1025; ++i)
        entries.append(entry(QByteArray::number(i), "x"));
    make(entries);
    unzip.Directory();
    unzip.setFileSelected(1, false);
    try {
        unzip.unzip();
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(error.source(), QStringLiteral("QuillOfficeToolsv2.VBUnzip"));
    }
    unzip.setFileSelected(2, false);
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files().size(), 1023);
}

TEST_F(cUnzipTest, FilesStayWhereNobodyIsAsked)
{
    make({entry("a", "new")});
    scratch.addFolder("out");
    scratch.addFile("out/a", "old");
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files().value("a"), QByteArray("old"));
    unzip.setPromptToOverwrite(true);
    EXPECT_FALSE(unzip.unzip()); // without a handler the answer is no
    EXPECT_EQ(files().value("a"), QByteArray("old"));
    unzip.setOverwriteExisting(true);
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files().value("a"), QByteArray("new"));
}

TEST_F(cUnzipTest, AsksTheOwnerAboutFilesThatExist)
{
    make({entry("sub/a", "new")});
    scratch.addFolder("out");
    scratch.addFolder("out/sub");
    scratch.addFile("out/sub/a", "old");
    QStringList questions;
    on(&unzip, &cUnzip::OverwritePrompt, &unzip, [&](const QString &file, int &answer) {
        EXPECT_EQ(answer, OverwriteAnswer::No);
        questions.append(file);
        answer = OverwriteAnswer::Yes;
    });
    unzip.setPromptToOverwrite(true);
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(questions, QStringList{QStringLiteral("sub\\a")});
    EXPECT_EQ(files().value("sub/a"), QByteArray("new"));
}

TEST_F(cUnzipTest, SkipsEncryptedFilesWithoutAPassword)
{
    encrypt();
    int requests = 0;
    on(&unzip, &cUnzip::PasswordRequest, &unzip, [&](QString &, bool &) { ++requests; });
    EXPECT_TRUE(unzip.unzip());
    EXPECT_EQ(requests, 1);
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"plain", "plain"}}));
}

TEST_F(cUnzipTest, TakesThePasswordOfTheOwner)
{
    encrypt();
    QStringList answers = {QStringLiteral("wrong"), QStringLiteral(" key ")};
    on(&unzip, &cUnzip::PasswordRequest, &unzip,
       [&](QString &password, bool &) { password = answers.takeFirst(); });
    EXPECT_FALSE(unzip.unzip());
    EXPECT_EQ(files().value("secret"), QByteArray("secret"));
    EXPECT_TRUE(answers.isEmpty());
}

/// Of the wrong passwords some pass the one byte by which they are tested first.
TEST_F(cUnzipTest, WrongPasswordsLeaveNoFile)
{
    encrypt();
    unzip.setOverwriteExisting(true);
    int number = 0;
    on(&unzip, &cUnzip::PasswordRequest, &unzip,
       [&](QString &password, bool &) { password = QString::number(++number); });
    constexpr int runs = 300;
    for (int i = 0; i < runs; ++i)
        EXPECT_TRUE(unzip.unzip());
    EXPECT_EQ(number, 3 * runs); // asked three times each
    EXPECT_EQ(files(), (QMap<QByteArray, QByteArray>{{"plain", "plain"}}));
}

TEST_F(cUnzipTest, IsCancelledByTheOwner)
{
    make({entry("aa", "1"), entry("bb", "2")});
    QStringList names;
    on(&unzip, &cUnzip::Cancel, &unzip, [&](const QString &name, bool &cancel) {
        names.append(name);
        cancel = true;
    });
    EXPECT_TRUE(unzip.unzip());
    EXPECT_EQ(names, QStringList{unzip.ZipFile().replace(u'/', u'\\')});
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(cUnzipTest, TestsWithoutWriting)
{
    make({entry("aa", "1")});
    unzip.setTestZip(true);
    EXPECT_FALSE(unzip.unzip());
    EXPECT_FALSE(std::filesystem::exists(scratch.file("out").toStdString()));
    EXPECT_EQ(messages, QStringList{QStringLiteral("    testing: aa   OK")});
}

TEST_F(cUnzipTest, HandlersMayRunEvents)
{
    make({entry("aa", "1"), entry("bb", "2")});
    int events = 0;
    QTimer timer;
    on(&timer, &QTimer::timeout, &timer, [&events] { ++events; });
    timer.start(0);
    on(&unzip, &cUnzip::Cancel, &unzip, [](const QString &, bool &) { processPendingEvents(); });
    EXPECT_FALSE(unzip.unzip());
    EXPECT_GE(events, 2);
}

TEST_F(cUnzipTest, HasTheVersionOfTheSuite)
{
    int major = -1;
    int minor = -1;
    int revision = -1;
    QString beta = QStringLiteral("?");
    unzip.GetVersion(major, minor, revision, beta);
    EXPECT_EQ(major, Version::major);
    EXPECT_EQ(minor, Version::minor);
    EXPECT_EQ(revision, Version::revision);
    EXPECT_EQ(beta, QString());
}

TEST_F(mUnzipTest, TakesTheDayFromTheHour)
{
    list(listed("a"));
    EXPECT_EQ(unzip.FileDate(1), QDateTime(QDate(2004, 3, 9), QTime(9, 40)));
    ListedEntry midnight = listed("a");
    midnight.hh = 0;
    list(midnight);
    EXPECT_EQ(unzip.FileDate(1), QDateTime(QDate(2004, 2, 29), QTime(0, 40)));
    midnight.mo = 1;
    list(midnight);
    EXPECT_EQ(unzip.FileDate(1).date(), QDate(2003, 12, 31));
    midnight.mo = 15; // as no calendar has it
    midnight.hh = 31;
    midnight.mm = 63;
    list(midnight);
    EXPECT_TRUE(unzip.FileDate(1).isValid());
}

TEST_F(mUnzipTest, ReckonsThePackedSizeFromThePackedSize)
{
    ListedEntry entry = listed("a");
    entry.csiz = 1000;
    entry.cfactor = 75;
    list(entry);
    EXPECT_EQ(unzip.FilePackedSize(1), 750);
    entry.csiz = 0x7fffffff;
    entry.cfactor = 100;
    list(entry);
    EXPECT_EQ(unzip.FilePackedSize(1), 0x7fffffff);
}

TEST_F(mUnzipTest, CutsNames)
{
    list(listed(QByteArray("dir/a\0b", 7)));
    EXPECT_EQ(unzip.FileName(1), QStringLiteral("a"));
    list(listed(QByteArray(300, 'x')));
    EXPECT_EQ(unzip.FileName(1).size(), 256);
    list(listed("dir/"));
    EXPECT_EQ(unzip.FileCount(), 0);
    list(listed({}));
    EXPECT_EQ(unzip.FileCount(), 0);
}

TEST_F(mUnzipTest, PrintsTextsOfSomeLength)
{
    callbacks.print("x");
    callbacks.print(QByteArray(1024, 'x'));
    EXPECT_TRUE(messages.isEmpty());
    callbacks.print("/a/b");
    callbacks.print(QByteArrayView("a\0b", 3));
    EXPECT_EQ(messages, QStringList({QStringLiteral("\\a\\b"), QString::fromUtf8("a\0b", 3)}));
}

TEST_F(mUnzipTest, CutsThePassword)
{
    on(&unzip, &cUnzip::PasswordRequest, &unzip,
       [](QString &password, bool &) { password = QString(300, u'x'); });
    std::array<char, 256> buffer;
    buffer.fill('#');
    EXPECT_EQ(callbacks.password(buffer), 0);
    EXPECT_EQ(QByteArray(buffer.data()), QByteArray(254, 'x'));
}

TEST_F(mUnzipTest, ACancelledPasswordIsNotAskedForAgain)
{
    int requests = 0;
    on(&unzip, &cUnzip::PasswordRequest, &unzip, [&](QString &password, bool &cancel) {
        ++requests;
        password = QStringLiteral("key");
        cancel = true;
    });
    std::array<char, 256> buffer = {};
    EXPECT_EQ(callbacks.password(buffer), 1);
    EXPECT_EQ(callbacks.password(buffer), 1);
    EXPECT_EQ(requests, 1);
}

TEST_F(mUnzipTest, AsksWhetherToGoOn)
{
    bool answer = true;
    on(&unzip, &cUnzip::Cancel, &unzip, [&](const QString &, bool &cancel) { cancel = answer; });
    EXPECT_EQ(callbacks.service("x"), 0);
    EXPECT_EQ(callbacks.service("xy"), 1);
    answer = false;
    EXPECT_EQ(callbacks.service("xy"), 0);
    std::array<char, 256> buffer = {};
    EXPECT_EQ(callbacks.password(buffer), 1); // nobody answers
}

TEST_F(mUnzipTest, AnswersNoWithoutAHandler)
{
    EXPECT_EQ(callbacks.replace("a"), OverwriteAnswer::No);
}
