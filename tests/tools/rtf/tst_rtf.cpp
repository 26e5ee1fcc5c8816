#include "AsUser.h"
#include "Files.h"
#include "FullDisk.h"
#include "ScratchHome.h"

#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct RtfTool : testing::Test
{
    /// Runs the program and waits for its end.
    void run(const QStringList &arguments)
    {
        QProcess process;
        process.start(tool, arguments);
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        code = process.exitCode();
        out = process.readAllStandardOutput();
        complaint = process.readAllStandardError();
    }

    QString file(const char *name, const QByteArray &bytes) const
    {
        const QString path = home.file(QLatin1String(name));
        Files::write(path, bytes);
        return path;
    }

    void expectComplaint(const QString &path, const char *about) const
    {
        EXPECT_EQ(code, 1);
        EXPECT_EQ(out, QByteArray());
        EXPECT_EQ(complaint, "rtf: " + path.toUtf8() + ": " + about + "\n");
    }

    ScratchHome home;
    QString tool = QStringLiteral(QUILL_RTF_TOOL);
    int code = -1;
    QByteArray out;
    QByteArray complaint;
};

} // namespace

TEST_F(RtfTool, PrintsTheTextOfRichText)
{
    run({QStringLiteral("text"), file("a.rtf", "{\\rtf1 caf\\'e9 {\\b two}\\par three}")});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("caf\xC3\xA9 two\nthree\n"));
    EXPECT_EQ(complaint, QByteArray());
}

TEST_F(RtfTool, PrintsPlainTextAsItIs)
{
    run({QStringLiteral("text"), file("a.txt", "one\r\ntwo\r\n")});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("one\ntwo\n"));
}

TEST_F(RtfTool, PrintsTheReadablePartOfADamagedFile)
{
    run({QStringLiteral("text"), file("a.rtf", "{\\rtf1{\\fonttbl{\\f0 A;}}one {\\b two")});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("one two\n"));
}

TEST_F(RtfTool, PrintsAnEmptyFileAsAnEmptyLine)
{
    run({QStringLiteral("text"), file("a.rtf", "")});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out, QByteArray("\n"));
}

TEST_F(RtfTool, SavesWhatItPrints)
{
    const QString from = file("a.rtf", "{\\rtf1 one {\\b two}\\par \\trowd\\cellx900\\intbl x\\cell\\row}");
    const QString to = home.file(QStringLiteral("b.rtf"));
    run({QStringLiteral("save"), from, to});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(out + complaint, QByteArray());
    run({QStringLiteral("text"), from});
    const QByteArray text = out;
    run({QStringLiteral("text"), to});
    EXPECT_EQ(out, text);
    EXPECT_TRUE(Files::read(to).startsWith("{\\rtf1"));
}

TEST_F(RtfTool, SavesPicturesAndListsWithoutADisplay)
{
    const QString from = QStringLiteral(QUILL_TEST_DATA "/rtf/office-pictures.rtf");
    const QString to = home.file(QStringLiteral("b.rtf"));
    run({QStringLiteral("save"), from, to});
    EXPECT_EQ(code, 0);
    EXPECT_EQ(Files::read(to).count("{\\pict"), 2);
    run({QStringLiteral("save"), QStringLiteral(QUILL_TEST_DATA "/rtf/office-lists.rtf"), to});
    EXPECT_EQ(code, 0);
    EXPECT_TRUE(Files::read(to).contains("\\listtable"));
}

TEST_F(RtfTool, ComplainsOfAMissingFile)
{
    const QString path = home.file(QStringLiteral("none.rtf"));
    run({QStringLiteral("text"), path});
    expectComplaint(path, "File not found");
}

TEST_F(RtfTool, ComplainsOfAFolder)
{
    run({QStringLiteral("text"), home.path()});
    expectComplaint(home.path(), "Path/File access error");
}

TEST_F(RtfTool, ComplainsOfADevice)
{
    run({QStringLiteral("text"), QStringLiteral("/dev/null")});
    expectComplaint(QStringLiteral("/dev/null"), "Path/File access error");
}

TEST_F(RtfTool, ComplainsOfAFileThatMayNotBeRead)
{
    const QString path = file("a.rtf", "{\\rtf1 x}");
    tool = home.file(QStringLiteral("rtf")); // the build may be where only root may look
    ASSERT_TRUE(QFile::copy(QStringLiteral(QUILL_RTF_TOOL), tool));
    const AsUser user(home.path());
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0), 0);
    run({QStringLiteral("text"), path});
    expectComplaint(path, "Permission denied");
}

TEST_F(RtfTool, ComplainsOfAMissingFolder)
{
    const QString from = file("a.rtf", "{\\rtf1 x}");
    const QString to = home.file(QStringLiteral("none/b.rtf"));
    run({QStringLiteral("save"), from, to});
    expectComplaint(to, "Path not found");
}

TEST_F(RtfTool, SavesNothingOfAMissingFile)
{
    const QString from = home.file(QStringLiteral("none.rtf"));
    const QString to = file("b.rtf", "old");
    run({QStringLiteral("save"), from, to});
    expectComplaint(from, "File not found");
    EXPECT_EQ(Files::read(to), QByteArray("old"));
}

TEST_F(RtfTool, LeavesTheOldFileWholeOnAFullDisk)
{
    const QString from = file("a.txt", QByteArray(10000, 'x'));
    const QString to = file("b.rtf", "old");
    {
        const FullDisk disk(100); // the program inherits it
        run({QStringLiteral("save"), from, to});
    }
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(complaint.startsWith("rtf: " + to.toUtf8() + ": ")) << complaint.constData();
    EXPECT_EQ(complaint.count('\n'), 1);
    EXPECT_EQ(Files::read(to), QByteArray("old"));
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(RtfTool, ReportsAFullOutput)
{
    const QString path = file("a.rtf", "{\\rtf1 x}");
    QProcess process;
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(QUILL_RTF_TOOL), {QStringLiteral("text"), path});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), QByteArray("rtf: standard output: Disk full\n"));
}

TEST_F(RtfTool, PrintsItsUsage)
{
    const QStringList wrong[] = {{},
                                 {QStringLiteral("text")},
                                 {QStringLiteral("save"), QStringLiteral("a")},
                                 {QStringLiteral("print"), QStringLiteral("a")},
                                 {QStringLiteral("text"), QStringLiteral("a"), QStringLiteral("b")}};
    for (const QStringList &arguments : wrong) {
        run(arguments);
        EXPECT_EQ(code, 2);
        EXPECT_EQ(complaint, QByteArray("rtf: usage: rtf text FILE, or rtf save IN OUT\n"));
    }
}

TEST_F(RtfTool, SavesPlainTextInThePlainFontOfRichText)
{
    const QString to = home.file(QStringLiteral("b.rtf"));
    run({QStringLiteral("save"), file("a.txt", "one\n"), to});
    EXPECT_EQ(Files::read(to), QByteArray("{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Times "
                                          "New Roman;}}\n{\\*\\generator Quill-Office Tools;}\n"
                                          "one\\par\n\\par\n}\n"));
}
