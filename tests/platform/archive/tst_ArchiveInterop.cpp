#include "FolderContent.h"
#include "PrintQt.h"
#include "RowName.h"
#include "ScratchFolder.h"
#include "TestData.h"
#include "Tool.h"
#include "UnzipRun.h"
#include "ZipRun.h"

#include <QRandomGenerator>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

/// A folder with files of several kinds, archived and extracted by ours and by other programs.
struct ArchiveInteropTest : testing::Test
{
    ScratchFolder scratch;
    std::filesystem::path before = std::filesystem::current_path();
    QByteArray in = scratch.file("in");
    QByteArray out = scratch.file("out");
    QByteArray archive = scratch.file("a.zip");

    ArchiveInteropTest()
    {
        scratch.addFolder("in");
        scratch.addFolder("in/sub");
        scratch.addFolder("in/empty");
        add("text.txt", QByteArray("some words and others\n").repeated(500), 0644);
        add("sub/noise", TestData::noise(70'000), 0600);
        add("sub/script", "#!/bin/sh\n", 0755);
        add("caf\u00e9.txt", "utf-8", 0444);
        add("empty.txt", {}, 0640);
        add("large",
            TestData::noise(3 << 20) + QByteArray(3 << 20, '\0') + QByteArray("words ").repeated(500'000),
            0644);
        for (const char *folder : {"in/sub", "in/empty"})
            setModified(scratch.file(folder));
        std::filesystem::current_path(in.toStdString());
    }
    ~ArchiveInteropTest() override { std::filesystem::current_path(before); }

    void add(const QByteArray &name, const QByteArray &content, mode_t mode) const
    {
        scratch.addFile("in/" + name, content);
        EXPECT_EQ(::chmod(scratch.file("in/" + name).constData(), mode), 0);
        setModified(scratch.file("in/" + name));
    }
    static void setModified(const QByteArray &path)
    {
        const timespec times[] = {{1'234'567'891, 0}, {1'234'567'891, 0}};
        EXPECT_EQ(::utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    }
    int zip(bool isEncrypted = false) const
    {
        ZipRun job;
        job.options.fRecurse = 1;
        job.options.fNoDirEntries = 0;
        job.options.fEncrypt = isEncrypted;
        job.passwords = {"secret", "secret"};
        return job.run(archive, {"text.txt", "sub", "caf\u00e9.txt", "empty.txt", "large", "empty"});
    }
    int unzip(const QByteArrayList &passwords = {}) const
    {
        UnzipRun job;
        job.passwords = passwords;
        return job.extract(archive, out);
    }
};

struct ToolRow
{
    const char *name;
    QByteArray program;
    QByteArrayList arguments; ///< ARCHIVE and OUT are replaced
};

void PrintTo(const ToolRow &row, std::ostream *out)
{
    *out << row.name;
}

QByteArrayList filled(QByteArrayList arguments, const QByteArray &archive, const QByteArray &out)
{
    for (QByteArray &argument : arguments)
        argument.replace("ARCHIVE", archive).replace("OUT", out);
    return arguments;
}

const ToolRow testers[] = {
    {"Unzip", "unzip", {"-tqq", "ARCHIVE"}},  {"SevenZip", "7z", {"t", "ARCHIVE"}},
    {"Bsdtar", "bsdtar", {"-tf", "ARCHIVE"}}, {"Python", "python3", {"-m", "zipfile", "-t", "ARCHIVE"}},
    {"ZipItself", "zip", {"-qT", "ARCHIVE"}},
};

const ToolRow makers[] = {
    {"Zip", "zip", {"-qr", "ARCHIVE", "."}},
    {"ZipStored", "zip", {"-qr0", "ARCHIVE", "."}},
    {"ZipForced64", "zip", {"-qr", "-fz", "ARCHIVE", "."}},
    {"ZipStreamed", "sh", {"-c", "zip -qr - . > ARCHIVE"}},
    {"ZipWithPrefix",
     "sh",
     {"-c", "zip -qr OUT.tmp . && (echo prefix; cat OUT.tmp.zip 2>/dev/null || cat OUT.tmp) > ARCHIVE; rm -f "
            "OUT.tmp*"}},
    {"SevenZip", "7z", {"a", "-bd", "ARCHIVE", "."}},
    {"Bsdtar", "bsdtar", {"-cf", "ARCHIVE", "--format=zip", "."}},
    {"Python",
     "python3",
     {"-m", "zipfile", "-c", "ARCHIVE", "text.txt", "sub", "caf\u00e9.txt", "empty.txt", "large", "empty"}},
};

struct OtherTesterTest : ArchiveInteropTest, testing::WithParamInterface<ToolRow>
{};
struct OtherMakerTest : ArchiveInteropTest, testing::WithParamInterface<ToolRow>
{};

} // namespace

TEST_P(OtherTesterTest, AcceptsOurArchive)
{
    ASSERT_EQ(zip(), ZipResult::Success);
    const Tool tool = Tool::run(GetParam().program, filled(GetParam().arguments, archive, out), in);
    EXPECT_EQ(tool.code, 0) << tool.output.constData();
}

INSTANTIATE_TEST_SUITE_P(Programs, OtherTesterTest, testing::ValuesIn(testers), RowName());

TEST_P(OtherMakerTest, MakesAnArchiveThatWeExtract)
{
    const Tool tool = Tool::run(GetParam().program, filled(GetParam().arguments, archive, out), in);
    ASSERT_EQ(tool.code, 0) << tool.output.constData();
    EXPECT_EQ(unzip(), UnzipResult::Success);
    const auto expected = FolderContent::of(in);
    const auto found = FolderContent::of(out);
    EXPECT_EQ(found.keys(), expected.keys());
    for (auto node = expected.cbegin(); node != expected.cend(); ++node) {
        EXPECT_TRUE(found[node.key()].bytes == node->bytes) << node.key().constData();
        if (S_ISREG(node->mode)) {
            EXPECT_EQ(found[node.key()].mode, node->mode) << node.key().constData();
            EXPECT_LE(std::abs(found[node.key()].modified - node->modified), 1) << node.key().constData();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, OtherMakerTest, testing::ValuesIn(makers), RowName());

TEST_F(ArchiveInteropTest, UnzipExtractsWhatWasArchived)
{
    ASSERT_EQ(zip(), ZipResult::Success);
    const Tool tool = Tool::run("unzip", {"-qq", archive, "-d", out}, in);
    EXPECT_EQ(tool.code, 0) << tool.output.constData();
    EXPECT_TRUE(FolderContent::of(out) == FolderContent::of(in));
}

TEST_F(ArchiveInteropTest, WeExtractWhatWeHaveArchived)
{
    ASSERT_EQ(zip(), ZipResult::Success);
    EXPECT_EQ(unzip(), UnzipResult::Success);
    EXPECT_TRUE(FolderContent::of(out) == FolderContent::of(in));
}

TEST_F(ArchiveInteropTest, OthersReadWhatIsEncryptedHere)
{
    ASSERT_EQ(zip(true), ZipResult::Success);
    EXPECT_EQ(Tool::run("unzip", {"-tqq", "-P", "secret", archive}, in).code, 0);
    EXPECT_NE(Tool::run("unzip", {"-tqq", "-P", "wrong", archive}, in).code, 0);
    EXPECT_EQ(Tool::run("7z", {"t", "-psecret", archive}, in).code, 0);
}

TEST_F(ArchiveInteropTest, WeReadWhatOthersHaveEncrypted)
{
    const QByteArrayList makersOfThese[] = {
        {"zip", "-qr", "-P", "secret", archive, "."},
        {"7z", "a", "-bd", "-psecret", "-mem=ZipCrypto", archive, "."},
        {"7z", "a", "-bd", "-psecret", "-mem=AES128", archive, "."},
        {"7z", "a", "-bd", "-psecret", "-mem=AES256", archive, "."},
        {"bsdtar", "-cf", archive, "--format=zip", "--passphrase", "secret", "--options",
         "zip:encryption=aes256", "."},
        {"bsdtar", "-cf", archive, "--format=zip", "--passphrase", "secret", "--options",
         "zip:encryption=zipcrypt", "."},
    };
    for (const QByteArrayList &maker : makersOfThese) {
        std::filesystem::remove(archive.toStdString());
        std::filesystem::remove_all(out.toStdString());
        ASSERT_EQ(Tool::run(maker[0], maker.mid(1), in).code, 0) << maker.join(' ').constData();
        EXPECT_EQ(unzip({"secret"}), UnzipResult::Success) << maker.join(' ').constData();
        EXPECT_TRUE(FolderContent::filesOf(out) == FolderContent::filesOf(in)) << maker.join(' ').constData();
    }
}

TEST_F(ArchiveInteropTest, FindsDamageInEncryptedData)
{
    for (const char *method : {"ZipCrypto", "AES256"}) {
        std::filesystem::remove(archive.toStdString());
        ASSERT_EQ(
            Tool::run("7z", {"a", "-mx=0", "-psecret", QByteArray("-mem=") + method, archive, "text.txt"}, in)
                .code,
            0);
        QByteArray bytes = FolderContent::read(archive);
        bytes[bytes.size() / 3] = char(bytes[bytes.size() / 3] ^ 1);
        scratch.addFile("a.zip", bytes);
        EXPECT_NE(unzip({"secret"}), UnzipResult::Success) << method;
        EXPECT_TRUE(FolderContent::filesOf(out).isEmpty()) << method;
    }
}

TEST_F(ArchiveInteropTest, UpdatesArchivesOfOthers)
{
    for (const ToolRow &maker : makers) {
        std::filesystem::remove(archive.toStdString());
        std::filesystem::remove_all(out.toStdString());
        ASSERT_EQ(Tool::run(maker.program, filled(maker.arguments, archive, out), in).code, 0);
        ZipRun job;
        ASSERT_EQ(job.run(archive, {"text.txt"}), ZipResult::Success) << maker.name;
        const Tool tool = Tool::run("unzip", {"-tqq", archive}, in);
        EXPECT_LE(tool.code, 1) << maker.name << tool.output.constData(); // 1 for a prefix
        EXPECT_EQ(unzip(), UnzipResult::Success) << maker.name;
        EXPECT_TRUE(FolderContent::filesOf(out) == FolderContent::filesOf(in)) << maker.name;
    }
}

TEST_F(ArchiveInteropTest, FindsTheNamesThatZipFinds)
{
    for (const QByteArray &pattern :
         {QByteArray("*.txt"), QByteArray("s*"), QByteArray("sub/*"), QByteArray("*e")}) {
        const QByteArray theirs = scratch.file("theirs.zip");
        std::filesystem::remove(archive.toStdString());
        std::filesystem::remove(theirs.toStdString());
        ASSERT_EQ(Tool::run("zip", {"-qRD", theirs, pattern}, in).code, 0);
        ZipRun job;
        job.options.fRecurse = 2;
        ASSERT_EQ(job.run(archive, {pattern}), ZipResult::Success);
        const auto names = [&](const QByteArray &zip) {
            UnzipRun list;
            list.list(zip);
            QByteArrayList found;
            for (const ListedEntry &entry : list.entries)
                found.append(entry.fname);
            std::sort(found.begin(), found.end());
            return found;
        };
        EXPECT_EQ(names(archive), names(theirs)) << pattern.constData();
    }
}

TEST_F(ArchiveInteropTest, ConvertsLineEndsAsZipDoes)
{
    add("mixed.txt", "one\r\ntwo\nthree\r\r\nfour\rfive\n", 0644);
    for (const char *option : {"-l", "-ll"}) {
        std::filesystem::remove_all(out.toStdString());
        const QByteArray theirs = scratch.file("theirs.zip");
        std::filesystem::remove(theirs.toStdString());
        ASSERT_EQ(Tool::run("zip", {"-q", option, theirs, "mixed.txt", "text.txt", "sub/noise"}, in).code, 0);
        ASSERT_EQ(Tool::run("unzip", {"-qq", theirs, "-d", out}, in).code, 0);
        const auto expected = FolderContent::filesOf(out);
        std::filesystem::remove_all(out.toStdString());
        std::filesystem::remove(archive.toStdString());
        ZipRun job;
        (QByteArray(option) == "-l" ? job.options.fLF_CRLF : job.options.fCRLF_LF) = 1;
        ASSERT_EQ(job.run(archive, {"mixed.txt", "text.txt", "sub/noise"}), ZipResult::Success);
        ASSERT_EQ(unzip(), UnzipResult::Success);
        EXPECT_TRUE(FolderContent::filesOf(out) == expected) << option;
    }
}
