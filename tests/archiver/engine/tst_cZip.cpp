#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "UnzipRun.h"
#include "ZipResult.h"
#include "cZip.h"
#include "mZip.h"

#include <QTimer>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

struct cZipTest : testing::Test
{
    ScratchFolder scratch;
    std::filesystem::path before = std::filesystem::current_path();
    cZip zip;
    QStringList messages;

    cZipTest()
    {
        scratch.addFile("one.txt", "first");
        scratch.addFile("two.bas", "second");
        scratch.addFolder("sub");
        scratch.addFile("sub/three.txt", "third");
        zip.setZipFile(path("a.zip"));
        on(&zip, &cZip::Progress, &zip, [this](int, const QString &text) { messages.append(text); });
    }
    ~cZipTest() override { std::filesystem::current_path(before); }

    QString path(const char *name) const { return QString::fromUtf8(scratch.file(name)); }
    QByteArrayList names() const
    {
        UnzipRun job;
        job.list(scratch.file("a.zip"));
        QByteArrayList found;
        for (const ListedEntry &entry : job.entries)
            found.append(entry.fname);
        return found;
    }
};

/// The callbacks of one job, called as the library calls them.
struct mZipTest : cZipTest
{
    ZIPUSERFUNCTIONS callbacks = mZip::callbacksOf(zip);
};

QByteArray textOf(std::span<const char> buffer)
{
    return QByteArray(buffer.data());
}

} // namespace

TEST_F(cZipTest, BeginsWithTheseValues)
{
    EXPECT_TRUE(zip.StoreDirectories()); // though false was written
    EXPECT_FALSE(zip.StoreFolderNames());
    EXPECT_FALSE(zip.RecurseSubDirs());
    EXPECT_FALSE(zip.Encrypt());
    EXPECT_FALSE(zip.IncludeSystemAndHiddenFiles());
    EXPECT_FALSE(zip.AllowAppend());
    EXPECT_EQ(zip.MessageLevel(), 2);
    EXPECT_EQ(zip.BasePath(), QString());
    EXPECT_EQ(zip.FileSpecCount(), 0);
    EXPECT_TRUE(zip.Success());
}

TEST_F(cZipTest, KeepsPlainProperties)
{
    const struct
    {
        bool (cZip::*get)() const;
        void (cZip::*set)(bool);
    } properties[] = {
        {&cZip::Encrypt, &cZip::setEncrypt},
        {&cZip::IncludeSystemAndHiddenFiles, &cZip::setIncludeSystemAndHiddenFiles},
        {&cZip::StoreVolumeLabel, &cZip::setStoreVolumeLabel},
        {&cZip::ConvertCRLFToLF, &cZip::setConvertCRLFToLF},
        {&cZip::ConvertLFToCRLF, &cZip::setConvertLFToCRLF},
        {&cZip::UpdateOnlyIfNewer, &cZip::setUpdateOnlyIfNewer},
        {&cZip::StoreFolderNames, &cZip::setStoreFolderNames},
        {&cZip::RecurseSubDirs, &cZip::setRecurseSubDirs},
        {&cZip::AllowAppend, &cZip::setAllowAppend},
    };
    for (const auto &property : properties) {
        for (const bool value : {true, false}) {
            (zip.*property.set)(value);
            EXPECT_EQ((zip.*property.get)(), value) << &property - properties;
        }
    }
}

TEST_F(cZipTest, ReadingAddCommentChangesEncrypt)
{
    zip.setAddComment(true);
    EXPECT_FALSE(zip.AddComment());
    EXPECT_TRUE(zip.Encrypt());
    zip.setAddComment(false);
    EXPECT_FALSE(zip.AddComment());
    EXPECT_FALSE(zip.Encrypt());
}

TEST_F(cZipTest, StoreDirectoriesReadsTheOpposite)
{
    zip.setStoreDirectories(true);
    EXPECT_FALSE(zip.StoreDirectories());
}

TEST_F(cZipTest, WritingFreshenFilesSetsUpdateOnlyIfNewer)
{
    zip.setFreshenFiles(true);
    EXPECT_TRUE(zip.UpdateOnlyIfNewer());
    EXPECT_FALSE(zip.FreshenFiles());
}

TEST_F(cZipTest, KeepsTheMessageLevel)
{
    for (const int level : {0, 1, 2}) {
        zip.setMessageLevel(level);
        EXPECT_EQ(zip.MessageLevel(), level);
    }
    zip.setMessageLevel(7);
    EXPECT_EQ(zip.MessageLevel(), 2);
}

TEST_F(cZipTest, KeepsAList)
{
    EXPECT_EQ(zip.AddFileSpec(QStringLiteral("a")), 0);
    zip.AddFileSpec(QStringLiteral("b"));
    EXPECT_EQ(zip.FileSpecCount(), 2);
    EXPECT_EQ(zip.FileSpec(2), QStringLiteral("b"));
    EXPECT_EQ(errorNumberOf([this] { zip.FileSpec(0); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorNumberOf([this] { zip.FileSpec(3); }), ErrorNumber::SubscriptOutOfRange);
    zip.ClearFileSpecs();
    EXPECT_EQ(zip.FileSpecCount(), 0);
}

TEST_F(cZipTest, RunsAJob)
{
    zip.AddFileSpec(path("one.txt"));
    zip.AddFileSpec(path("sub/three.txt"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "three.txt"}));
    EXPECT_EQ(messages, QStringList({QStringLiteral("  adding: one.txt (stored 0%)"),
                                     QStringLiteral("  adding: three.txt (stored 0%)")}));
}

TEST_F(cZipTest, BasePathBecomesTheCurrentFolder)
{
    zip.setBasePath(scratch.path());
    zip.setStoreFolderNames(true);
    zip.setRecurseSubDirs(true);
    zip.AddFileSpec(QStringLiteral("*.txt"));
    zip.AddFileSpec(QStringLiteral("*.bas"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    EXPECT_EQ(names(), QByteArrayList({"one.txt", "two.bas", "sub/three.txt"}));
    EXPECT_EQ(std::filesystem::current_path(), scratch.path().toStdString()); // and stays it
    EXPECT_TRUE(messages.contains(QStringLiteral("  adding: sub\\three.txt (stored 0%)")));
    zip.setBasePath(QStringLiteral("  "));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    zip.setBasePath(path("none"));
    EXPECT_EQ(errorNumberOf([this] { zip.zip(); }), ErrorNumber::PathNotFound);
}

TEST_F(cZipTest, SaysThatItFailed)
{
    zip.AddFileSpec(path("none"));
    zip.zip();
    EXPECT_FALSE(zip.Success());
}

TEST_F(cZipTest, DeleteLeavesSuccessAsItWas)
{
    zip.AddFileSpec(path("one.txt"));
    zip.AddFileSpec(path("two.bas"));
    zip.zip();
    zip.ClearFileSpecs();
    zip.AddFileSpec(QStringLiteral("one.txt"));
    zip.Delete();
    EXPECT_EQ(names(), QByteArrayList{"two.bas"});
    zip.Delete(); // there is nothing to delete any more
    EXPECT_TRUE(zip.Success());
    zip.ClearFileSpecs();
    zip.AddFileSpec(path("one.txt"));
    zip.zip(); // adds again
    EXPECT_EQ(names(), QByteArrayList({"two.bas", "one.txt"}));
}

TEST_F(cZipTest, RefusesMoreNamesThanTheLibraryTakes)
{
    for (int i = 0; i < 1023; ++i)
        zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    zip.AddFileSpec(path("one.txt"));
    EXPECT_EQ(errorNumberOf([this] { zip.zip(); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(cZipTest, EncryptsWithTheAnswersOfTheOwner)
{
    QList<bool> confirmations;
    on(&zip, &cZip::PasswordRequest, &zip, [&](QString &password, int most, bool isConfirming, bool &) {
        EXPECT_EQ(most, 256);
        confirmations.append(isConfirming);
        password = QStringLiteral(" p\u00e4ss ");
    });
    zip.setEncrypt(true);
    zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    EXPECT_EQ(confirmations, QList<bool>({false, true}));
    UnzipRun job;
    job.passwords = {"p\u00e4ss"};
    EXPECT_EQ(job.extract(scratch.file("a.zip"), scratch.file("out")), UnzipResult::Success);
    EXPECT_EQ(FolderContent::read(scratch.file("out/one.txt")), QByteArray("first"));
}

TEST_F(cZipTest, AnEmptyPasswordCancelsTheJob)
{
    int requests = 0;
    on(&zip, &cZip::PasswordRequest, &zip, [&](QString &, int, bool, bool &) { ++requests; });
    zip.setEncrypt(true);
    zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_FALSE(zip.Success());
    EXPECT_EQ(requests, 1);
    EXPECT_FALSE(std::filesystem::exists(scratch.file("a.zip").toStdString()));
}

TEST_F(cZipTest, AnEmptyCommentIsNoFailure)
{
    zip.setAddComment(true);
    zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    EXPECT_EQ(names(), QByteArrayList{"one.txt"});
}

TEST_F(cZipTest, CutsTheComment)
{
    on(&zip, &cZip::CommentRequest, &zip, [](QString &comment, bool &) { comment = QString(300, u'c'); });
    zip.setAddComment(true);
    zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_TRUE(
        FolderContent::read(scratch.file("a.zip")).endsWith(QByteArray("\xfe\0", 2) + QByteArray(254, 'c')));
}

TEST_F(cZipTest, IsCancelledByTheOwner)
{
    QStringList names;
    on(&zip, &cZip::Cancel, &zip, [&](const QString &name, bool &cancel) {
        names.append(name);
        cancel = true;
    });
    zip.setStoreFolderNames(true);
    zip.AddFileSpec(path("sub/three.txt"));
    zip.zip();
    EXPECT_FALSE(zip.Success());
    EXPECT_EQ(names.size(), 1);
    EXPECT_FALSE(std::filesystem::exists(scratch.file("a.zip").toStdString()));
}

/// A window is painted while a job runs.
TEST_F(cZipTest, HandlersMayRunEvents)
{
    int events = 0;
    QTimer timer;
    on(&timer, &QTimer::timeout, &timer, [&events] { ++events; });
    timer.start(0);
    on(&zip, &cZip::Cancel, &zip, [](const QString &, bool &) { processPendingEvents(); });
    zip.AddFileSpec(path("one.txt"));
    zip.AddFileSpec(path("two.bas"));
    zip.zip();
    EXPECT_GE(events, 2);
}

TEST_F(cZipTest, OneJobAtATime)
{
    cZip other;
    other.setZipFile(path("b.zip"));
    other.setBasePath(path("sub"));
    other.AddFileSpec(path("one.txt"));
    on(&zip, &cZip::Cancel, &zip, [&](const QString &, bool &) { other.zip(); });
    zip.AddFileSpec(path("one.txt"));
    zip.zip();
    EXPECT_TRUE(zip.Success());
    EXPECT_FALSE(other.Success());
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(mZipTest, PrintsTextsOfSomeLength)
{
    callbacks.print("x");
    callbacks.print(QByteArray(1024, 'x'));
    EXPECT_TRUE(messages.isEmpty());
    callbacks.print("xy");
    callbacks.print(QByteArray(1023, 'x'));
    EXPECT_EQ(messages, QStringList({QStringLiteral("xy"), QString(1023, u'x')}));
}

TEST_F(mZipTest, PrintsPathsWithBackslashes)
{
    callbacks.print("a/b/c.txt");
    callbacks.print("/a/b");
    callbacks.print(QByteArrayView("a/b\0c/d", 7));
    EXPECT_EQ(messages,
              QStringList({QStringLiteral("a\\b\\c.txt"), QStringLiteral("/a/b"), QStringLiteral("a\\b")}));
}

TEST_F(mZipTest, AsksWhetherToGoOn)
{
    QStringList names;
    bool answer = false;
    on(&zip, &cZip::Cancel, &zip, [&](const QString &name, bool &cancel) {
        EXPECT_FALSE(cancel);
        names.append(name);
        cancel = answer;
    });
    EXPECT_EQ(callbacks.service("x"), 0);
    EXPECT_EQ(callbacks.service(QByteArray(1024, 'x')), 0);
    EXPECT_TRUE(names.isEmpty());
    EXPECT_EQ(callbacks.service("a/b"), 0);
    answer = true;
    EXPECT_EQ(callbacks.service("a/b"), 1);
    EXPECT_EQ(names, QStringList({QStringLiteral("a\\b"), QStringLiteral("a\\b")}));
    std::array<char, 256> password = {};
    EXPECT_EQ(callbacks.password(password), 1); // nobody is asked any more
}

TEST_F(mZipTest, FillsThePasswordBuffer)
{
    QString answer = QStringLiteral(" secret ");
    on(&zip, &cZip::PasswordRequest, &zip, [&](QString &password, int, bool, bool &) { password = answer; });
    std::array<char, 256> buffer;
    buffer.fill('#');
    EXPECT_EQ(callbacks.password(buffer), 0);
    EXPECT_EQ(textOf(buffer), QByteArray("secret"));
    EXPECT_EQ(buffer.back(), '\0');
    answer = QString(300, u'x');
    EXPECT_EQ(callbacks.password(buffer), 0);
    EXPECT_EQ(buffer.back(), 'x');
}

TEST_F(mZipTest, ACancelledRequestCancelsLaterOnes)
{
    int requests = 0;
    on(&zip, &cZip::CommentRequest, &zip, [&](QString &comment, bool &cancel) {
        ++requests;
        comment = QStringLiteral("text");
        cancel = true;
    });
    on(&zip, &cZip::PasswordRequest, &zip, [&](QString &, int, bool, bool &) { ++requests; });
    CommentBuffer comment;
    comment.fill('#');
    callbacks.comment(comment);
    EXPECT_EQ(textOf(comment), QByteArray());
    std::array<char, 256> password = {};
    EXPECT_EQ(callbacks.password(password), 1);
    callbacks.comment(comment);
    EXPECT_EQ(requests, 1);
}

TEST_F(mZipTest, AnEmptyPasswordCancelsLaterRequests)
{
    int requests = 0;
    on(&zip, &cZip::PasswordRequest, &zip, [&](QString &password, int, bool, bool &) {
        password = ++requests == 1 ? QStringLiteral("  ") : QStringLiteral("key");
    });
    std::array<char, 256> password = {};
    EXPECT_EQ(callbacks.password(password), 1);
    EXPECT_EQ(callbacks.password(password), 1);
    EXPECT_EQ(requests, 1);
}

TEST_F(mZipTest, CutsCommentsBetweenCharacters)
{
    on(&zip, &cZip::CommentRequest, &zip,
       [](QString &comment, bool &) { comment = QString(253, u'c') + QString(5, u'\u00e9'); });
    CommentBuffer comment;
    callbacks.comment(comment);
    EXPECT_EQ(textOf(comment), QByteArray(253, 'c'));
}
