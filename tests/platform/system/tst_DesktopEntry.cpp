#include "DesktopEntry.h"
#include "PrintQt.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

DesktopEntry entryWith(const QString &exec)
{
    return DesktopEntry::parse("[Desktop Entry]\nName=The Tool\nExec=" + exec.toUtf8() + '\n');
}

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(u'|', Qt::SkipEmptyParts);
}

} // namespace

TEST(DesktopEntry, ReadsItsOwnGroupAlone)
{
    const DesktopEntry entry = DesktopEntry::parse(
        "# Exec=no\nExec=no\n[Desktop Entry]\r\nExec = tool\r\nHidden=true\nName=a\\sb\\\\n\n"
        "Name[de]=Werkzeug\nno key\n[Desktop Action new]\nExec=other\n");
    EXPECT_EQ(entry.command(), words("tool"));
    EXPECT_TRUE(entry.isTrue(QStringLiteral("Hidden")));
    EXPECT_EQ(entry.text(QStringLiteral("Name")), QStringLiteral("a b\\n"));
    EXPECT_TRUE(entry.text(QStringLiteral("TryExec")).isEmpty());
}

TEST(DesktopEntry, SplitsItsCommandAndDropsThePlacesForFiles)
{
    const std::pair<const char *, const char *> cases[] = {
        {"tool %U", "tool"},
        {"tool  --title %c %f x", "tool|--title|The Tool|x"},
        {"\"/opt/my tool\" --file=%f 100%%", "/opt/my tool|--file=|100%"},
        {"\"a\\\\\"b\" c", "a\"b|c"},
        {"tool \"", ""},
        {"", ""},
        {"tool %", "tool|%"},
    };
    for (const auto &[exec, command] : cases)
        EXPECT_EQ(entryWith(QString::fromUtf8(exec)).command(), words(command)) << exec;
}

TEST(DesktopEntry, AWordIsQuotedOnlyWhereItHasToBe)
{
    EXPECT_EQ(DesktopEntry::execWord(QStringLiteral("/opt/quill/tool-1.0")),
              QStringLiteral("/opt/quill/tool-1.0"));
    EXPECT_EQ(DesktopEntry::execWord(QStringLiteral("/opt/my tool")), QStringLiteral("\"/opt/my tool\""));
    EXPECT_EQ(DesktopEntry::execWord(QStringLiteral("100%")), QStringLiteral("100%%"));
}

TEST(DesktopEntry, EveryWordComesBackAsItWasWritten)
{
    const QString signs = QStringLiteral("ab \t\n\r\"'\\><~|&;$*?#()`%fc=[\u00e9");
    QRandomGenerator random(5);
    for (int round = 0; round < 3000; ++round) {
        QStringList command(QStringLiteral("tool"));
        for (int word = random.bounded(4); word > 0; --word) {
            QString text;
            for (int length = random.bounded(8); length > 0; --length)
                text += signs[random.bounded(int(signs.size()))];
            command << text;
        }
        QStringList exec;
        for (const QString &word : command)
            exec << DesktopEntry::execWord(word);
        ASSERT_EQ(entryWith(DesktopEntry::escaped(exec.join(u' '))).command(), command);
    }
}

TEST(DesktopEntry, GarbageIsHarmless)
{
    QRandomGenerator random(9);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = "[Desktop Entry]\nExec=";
        for (int i = 0; i < 200; ++i)
            bytes += char(random.bounded(256));
        EXPECT_LE(DesktopEntry::parse(bytes).command().size(), 200);
    }
}
