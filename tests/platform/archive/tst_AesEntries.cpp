#include "FaultyCalls.h"
#include "FolderContent.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "Tool.h"
#include "UnzipRun.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

struct AesEntriesTest : testing::Test
{
    ScratchFolder scratch;
    QByteArray archive = scratch.file("a.zip");
    QByteArray target = scratch.file("target");
    UnzipRun job;

    /// Files that hold their names often, without compression.
    void add(const QByteArrayList &names, const QByteArray &password, const char *method = "AES256") const
    {
        for (const QByteArray &name : names)
            scratch.addFile(name, name.repeated(100));
        const QByteArrayList options = {"a",    "-bd", "-mx=0", QByteArray("-mem=") + method, "-p" + password,
                                        archive};
        ASSERT_EQ(Tool::run("7z", options + names, scratch.file("")).code, 0);
    }
    int extract() { return job.extract(archive, target); }
    /// Extracts, and returns the entry that is reported while the file \a held cannot appear.
    QByteArray reportedDuring(const QByteArray &held)
    {
        QByteArray reported;
        const FaultyCalls calls;
        calls.hold(FaultyCalls::RenameToFree, held);
        job.isCancelled = [&](QByteArrayView name) {
            if (calls.held() > 0 && reported.isEmpty()) {
                reported = name.toByteArray();
                calls.release();
            }
            return false;
        };
        EXPECT_EQ(extract(), UnzipResult::Success);
        return reported;
    }
    QByteArrayList names() const { return FolderContent::filesOf(target).keys(); }
    /// Extracts, and the file \a other appears while \a held cannot.
    void expectBesides(const QByteArray &held, const QByteArray &other)
    {
        const FaultyCalls calls;
        calls.hold(FaultyCalls::RenameToFree, held);
        job.isCancelled = [&](QByteArrayView) {
            if (calls.held() > 0 && names().contains(other))
                calls.release();
            return false;
        };
        EXPECT_EQ(extract(), UnzipResult::Success);
        EXPECT_FALSE(calls.isOverdue());
    }
};

} // namespace

/// The first entry alone waits for its password.
TEST_F(AesEntriesTest, BothThreadsExtractThem)
{
    add({"a", "b", "c"}, "one");
    job.passwords = {"one"};
    expectBesides("b", "c");
    EXPECT_EQ(names(), QByteArrayList({"a", "b", "c"}));
    EXPECT_EQ(job.messages, QByteArrayList({" extracting: a", " extracting: b", " extracting: c"}));
}

TEST_F(AesEntriesTest, MayHaveSeveralPasswords)
{
    add({"a"}, "one");
    add({"b", "c"}, "two");
    add({"d"}, "one");
    job.passwords = {"one", "two"};
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.passwordRequests, 2);
    const auto files = FolderContent::filesOf(target);
    EXPECT_EQ(files.keys(), QByteArrayList({"a", "b", "c", "d"}));
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        EXPECT_EQ(file.value(), file.key().repeated(100));
}

TEST_F(AesEntriesTest, AreSkippedWithoutTheirPassword)
{
    add({"a"}, "one");
    add({"b", "c"}, "two");
    add({"d"}, "one");
    job.passwords = {"one", "wrong"};
    EXPECT_EQ(extract(), UnzipResult::NoPassword);
    EXPECT_EQ(job.passwordRequests, 3);
    EXPECT_EQ(names(), QByteArrayList({"a", "d"}));
    EXPECT_TRUE(job.messages.contains("error:  b: no password, or a wrong one"));
    EXPECT_TRUE(job.messages.contains("error:  c: no password, or a wrong one"));
}

/// In another batch of the threads too.
TEST_F(AesEntriesTest, WithoutTheirPasswordLeaveTheOneThatIsRightForOthers)
{
    QByteArrayList others;
    for (int i = 100; i < 170; ++i)
        others.append(QByteArray::number(i));
    add({"0"}, "one");
    add(others, "two");
    add({"z"}, "one");
    job.passwords = {"one", "wrong"};
    EXPECT_EQ(extract(), UnzipResult::NoPassword);
    EXPECT_EQ(names(), QByteArrayList({"0", "z"}));
}

TEST_F(AesEntriesTest, AreReportedByTheirOwnNamesWhenTheyAreTriedAgain)
{
    add({"a"}, "one");
    add({"b", "c"}, "two");
    job.passwords = {"one", "two"};
    EXPECT_EQ(reportedDuring("b"), QByteArray("./b"));
}

/// The entry before which they are tried again is its own, too.
TEST_F(AesEntriesTest, LeaveTheNextEntryItsName)
{
    add({"a"}, "one");
    add({"b"}, "two");
    add({"c"}, "two", "ZipCrypto"); // is extracted when all before it are
    job.passwords = {"one", "two"};
    EXPECT_EQ(reportedDuring("c"), QByteArray("./c"));
}

TEST_F(AesEntriesTest, WithoutTheirPasswordLeaveTheFilesThatExist)
{
    add({"a"}, "one");
    add({"b"}, "two");
    std::filesystem::create_directory(target.constData());
    scratch.addFile("target/b", "old");
    job.passwords = {"one", "wrong"};
    job.options.noflag = 1;
    EXPECT_EQ(extract(), UnzipResult::NoPassword);
    EXPECT_EQ(names(), QByteArrayList({"a", "b"}));
    EXPECT_EQ(FolderContent::filesOf(target).value("b"), QByteArray("old"));
}

TEST_F(AesEntriesTest, MayBeCancelledWhileTheyAreRefused)
{
    add({"a"}, "one");
    add({"b", "c", "d"}, "two");
    job.passwords = {"one", "wrong"};
    job.isCancelled = [&](QByteArrayView) { return job.passwordRequests > 1; };
    EXPECT_EQ(extract(), UnzipResult::Cancelled);
    EXPECT_EQ(names(), QByteArrayList({"a"}));
    EXPECT_FALSE(job.messages.contains("error:  d: no password, or a wrong one"));
}

/// Three entries, or one of them three times.
TEST_F(AesEntriesTest, AnEmptyPasswordIsNone)
{
    add({"a", "b", "c", "d"}, "one");
    job.passwords = {"", "", ""};
    EXPECT_EQ(extract(), UnzipResult::NoPassword);
    EXPECT_EQ(job.passwordRequests, 3);
    EXPECT_TRUE(names().isEmpty());
}

/// What was to be read by the threads has no password any more.
TEST_F(AesEntriesTest, AreNotReadWithoutAPassword)
{
    QByteArrayList others;
    for (int i = 100; i < 170; ++i)
        others.append(QByteArray::number(i));
    add({"0"}, "one");
    add(others, "two");
    job.passwords = {"one", ""};
    EXPECT_EQ(extract(), UnzipResult::NoPassword);
    EXPECT_EQ(names(), QByteArrayList({"0"}));
}

/// By both threads again, however many there are.
TEST_F(AesEntriesTest, ANewPasswordIsUsedForAllThatFollow)
{
    QByteArrayList others;
    for (int i = 100; i < 250; ++i)
        others.append(QByteArray::number(i));
    add({"0"}, "one");
    add(others, "two");
    job.passwords = {"one", "two"};
    expectBesides("248", "249");
    EXPECT_EQ(job.passwordRequests, 2);
    EXPECT_EQ(names().size(), 151);
}

/// Also where the first one of that name needs another password.
TEST_F(AesEntriesTest, TheUserIsAskedAboutANameThatComesTwice)
{
    add({"a"}, "one");
    add({"its-name-1", "its-name-2"}, "two");
    scratch.addFile("a.zip", FolderContent::read(archive).replace("its-name-2", "its-name-1"));
    job.passwords = {"one", "two"};
    job.options.PromptToOverwrite = 1;
    EXPECT_EQ(extract(), UnzipResult::Success);
    EXPECT_EQ(job.questions, QByteArrayList{"its-name-1"});
    EXPECT_EQ(FolderContent::filesOf(target).value("its-name-1"), QByteArray("its-name-1").repeated(100));
}

TEST_F(AesEntriesTest, DamageIsFoundInEach)
{
    add({"a", "b", "c"}, "one");
    QByteArray bytes = FolderContent::read(archive);
    const qsizetype inside = bytes.indexOf("PK\3\4", bytes.indexOf("PK\3\4") + 1) + 100;
    bytes[inside] = char(bytes[inside] ^ 1);
    scratch.addFile("a.zip", bytes);
    job.passwords = {"one"};
    EXPECT_EQ(extract(), UnzipResult::DamagedEntry);
    EXPECT_EQ(names(), QByteArrayList({"a", "c"}));
    EXPECT_EQ(job.passwordRequests, 1);
}
