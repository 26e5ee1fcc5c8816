#include "ErrorNumberOf.h"
#include "Files.h"
#include "PrintQt.h"
#include "ScratchHome.h"
#include "ScratchVariable.h"
#include "ToolLauncher.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

namespace {

/// A search path with nothing in it but tools of the test, each of which records how it was called.
struct ToolLauncherTest : testing::Test
{
    ScratchHome home;
    QString bin = home.file(QStringLiteral("bin"));
    ScratchVariable path{"PATH", bin.toUtf8()};
    ScratchVariable dataFolders{"XDG_DATA_DIRS", home.file(QStringLiteral("data")).toUtf8()};
    ScratchVariable desktop{"XDG_CURRENT_DESKTOP"};

    ToolLauncherTest()
    {
        QDir().mkpath(bin);
        QDir().mkpath(home.file(QStringLiteral("data/applications")));
    }
    void install(const char *name) const
    {
        const QString file = bin + u'/' + QLatin1String(name);
        const QString log = home.file(QStringLiteral("log"));
        Files::write(file, "#!/bin/sh\nprintf '%s' \"$$ " + QByteArray(name) + "\" >'" + log.toUtf8() +
                               ".part'\nprintf '|%s' \"$@\" >>'" + log.toUtf8() + ".part'\n/bin/mv '" +
                               log.toUtf8() + ".part' '" + log.toUtf8() + "'\n");
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void installEntry(const char *id, const QByteArray &keys) const
    {
        Files::write(home.file(QStringLiteral("data/applications/%1.desktop").arg(QLatin1String(id))),
                     "[Desktop Entry]\nType=Application\nName=A Tool\n" + keys);
    }
    /// The command line of the tool that was started, which has the returned process id; "none" where nothing
    /// was.
    QString started(const ToolCandidates &candidates) const
    {
        const QString log = home.file(QStringLiteral("log"));
        QFile::remove(log);
        const std::optional<qint64> id = ToolLauncher::start(candidates);
        if (!id)
            return QStringLiteral("none");
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(log); }));
        const QString call = QString::fromUtf8(Files::read(log));
        EXPECT_EQ(call.section(u' ', 0, 0), QString::number(*id));
        return call.section(u' ', 1);
    }
};

constexpr ToolCandidates four = {"c:gnome-tool", "c:kde-tool", "c:xfce-tool", "c:other-tool"};

} // namespace

TEST_F(ToolLauncherTest, ReturnsNothingWhereNoToolIsFound)
{
    EXPECT_EQ(started(four), QStringLiteral("none"));
    EXPECT_EQ(started({nullptr, nullptr, nullptr, nullptr}), QStringLiteral("none"));
}

TEST_F(ToolLauncherTest, TheOwnDesktopIsTriedFirstThenTheFallbackThenTheOthers)
{
    struct
    {
        const char *desktop;
        QList<const char *> order;
    } const cases[] = {
        {"KDE", {"kde-tool", "other-tool", "gnome-tool", "xfce-tool"}},
        {"XFCE", {"xfce-tool", "other-tool", "gnome-tool", "kde-tool"}},
        {"ubuntu:GNOME", {"gnome-tool", "other-tool", "kde-tool", "xfce-tool"}},
        {"xfce:kde", {"xfce-tool", "kde-tool", "other-tool", "gnome-tool"}},
        {"LXQt", {"other-tool", "gnome-tool", "kde-tool", "xfce-tool"}},
        {"", {"other-tool", "gnome-tool", "kde-tool", "xfce-tool"}},
    };
    for (const auto &row : cases) {
        const ScratchVariable current("XDG_CURRENT_DESKTOP", row.desktop);
        for (const char *tool : row.order)
            install(tool);
        for (const char *tool : row.order) {
            EXPECT_EQ(started(four), QString::fromLatin1(tool) + u'|') << row.desktop;
            QFile::remove(bin + u'/' + QLatin1String(tool));
        }
    }
}

TEST_F(ToolLauncherTest, TheFirstOfAColumnThatIsThereIsTaken)
{
    install("second");
    install("third");
    EXPECT_EQ(started({nullptr, nullptr, nullptr, "c:first -x | c:second -a b | c:third"}),
              QStringLiteral("second|-a|b"));
}

TEST_F(ToolLauncherTest, WhetherAToolIsThereIsKnownWithoutStartingIt)
{
    const ToolCandidates candidates = {"c:first", nullptr, nullptr, "c:second -a"};
    EXPECT_FALSE(ToolLauncher::isThere(candidates));
    install("second");
    EXPECT_TRUE(ToolLauncher::isThere(candidates));
    EXPECT_FALSE(QFile::exists(home.file(QStringLiteral("log"))));
}

TEST_F(ToolLauncherTest, AToolThatCannotBeStartedIsPassedOver)
{
    const QString broken = bin + QStringLiteral("/broken");
    Files::write(broken, "#!/nowhere/interpreter\n");
    QFile::setPermissions(broken, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    install("second");
    EXPECT_EQ(started({nullptr, nullptr, nullptr, "c:broken | c:second"}), QStringLiteral("second|"));
    EXPECT_EQ(errorNumberOf([&] { started({nullptr, nullptr, nullptr, "c:broken"}); }), 53);
}

TEST_F(ToolLauncherTest, ADesktopFileIsStartedWithoutThePlacesForFiles)
{
    install("tool");
    installEntry("org.example.Tool", "TryExec=tool\nExec=tool --title %c \"two words\" %U\n");
    EXPECT_EQ(started({"d:org.example.Tool", nullptr, nullptr, nullptr}),
              QStringLiteral("tool|--title|A Tool|two words"));
}

TEST_F(ToolLauncherTest, ADesktopFileThatCannotServeIsNotThere)
{
    install("tool");
    installEntry("hidden", "Hidden=true\nExec=tool\n");
    installEntry("untried", "TryExec=gone\nExec=tool\n");
    installEntry("gone", "Exec=gone\n");
    installEntry("empty", "");
    installEntry("garbled", "Exec=\"tool\n");
    QDir().mkpath(home.file(QStringLiteral("data/applications/folder.desktop")));
    for (const char *id :
         {"d:hidden", "d:untried", "d:gone", "d:empty", "d:garbled", "d:folder", "d:missing"})
        EXPECT_EQ(started({id, nullptr, nullptr, nullptr}), QStringLiteral("none")) << id;
}

TEST_F(ToolLauncherTest, TheUsersOwnDesktopFileIsTriedFirst)
{
    install("tool");
    installEntry("a", "Exec=tool system\n");
    QDir().mkpath(home.file(QStringLiteral(".local/share/applications")));
    Files::write(home.file(QStringLiteral(".local/share/applications/a.desktop")),
                 "[Desktop Entry]\nExec=tool own\n");
    EXPECT_EQ(started({"d:a", nullptr, nullptr, nullptr}), QStringLiteral("tool|own"));
}

TEST_F(ToolLauncherTest, ACommandInATerminalNeedsBoth)
{
    constexpr ToolCandidates top = {nullptr, nullptr, nullptr, "t:top -b"};
    install("xterm");
    EXPECT_EQ(started(top), QStringLiteral("none"));
    install("top");
    EXPECT_EQ(started(top), QStringLiteral("xterm|-e|top|-b"));
    install("gnome-terminal");
    EXPECT_EQ(started(top), QStringLiteral("gnome-terminal|--|top|-b"));
    install("xdg-terminal-exec");
    EXPECT_EQ(started(top), QStringLiteral("xdg-terminal-exec|top|-b"));
    QFile::remove(bin + QStringLiteral("/top"));
    EXPECT_EQ(started(top), QStringLiteral("none"));
}

TEST_F(ToolLauncherTest, ADesktopFileMayAskForATerminal)
{
    install("tool");
    installEntry("a", "Terminal=true\nExec=tool x\n");
    constexpr ToolCandidates entry = {"d:a", nullptr, nullptr, nullptr};
    EXPECT_EQ(started(entry), QStringLiteral("none"));
    install("x-terminal-emulator");
    EXPECT_EQ(started(entry), QStringLiteral("x-terminal-emulator|-e|tool|x"));
}

TEST_F(ToolLauncherTest, ATerminalCanStayOpenBehindItsCommand)
{
    install("inxi");
    install("xterm");
    EXPECT_EQ(started({nullptr, nullptr, nullptr, "w:inxi -F"}),
              QStringLiteral("xterm|-e|sh|-c|\"$@\"; read -r line|sh|inxi|-F"));
}
