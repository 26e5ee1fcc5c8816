#include "AsUser.h"
#include "Files.h"
#include "LogInBanner.h"
#include "PrintQt.h"
#include "ScratchFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct LogInBannerTest : testing::Test
{
    QString file(const char *name) const { return QString::fromUtf8(etc.file(name)); }
    QByteArray content(const char *name) const { return Files::read(file(name)); }

    ScratchFolder etc;
    LogInBanner banner{etc.path()};
};

constexpr const char *console = "issue.d/90-quill.issue";
constexpr const char *desktop = "dconf/db/gdm.d/90-quill";
constexpr const char *profile = "dconf/profile/gdm";

} // namespace

TEST_F(LogInBannerTest, HasTitleAndTextOnConsoles)
{
    banner.show(QStringLiteral("Title"), QStringLiteral("One\r\nTwo\\n\u00e9"));
    EXPECT_EQ(content(console), QByteArray("Title\n\nOne\nTwo\\\\n\xc3\xa9\n"));
    EXPECT_FALSE(QFile::exists(file("dconf")));
}

TEST_F(LogInBannerTest, HasNoControlCharacters)
{
    banner.show(QStringLiteral("a\x1b[2Jb"), QStringLiteral("c\td"));
    EXPECT_EQ(content(console), QByteArray("a[2Jb\n\ncd\n"));
}

TEST_F(LogInBannerTest, IsOnTheDesktopsLogInScreen)
{
    etc.addFolder("gdm3");
    banner.show(QStringLiteral("It's"), QStringLiteral("a\\b"));
    EXPECT_EQ(content(desktop), QByteArray("[org/gnome/login-screen]\nbanner-message-enable=true\n"
                                           "banner-message-text='It\\'s\\n\\na\\\\b'\n"));
    EXPECT_TRUE(content(profile).contains("\nsystem-db:gdm\n"));
}

TEST_F(LogInBannerTest, CanBeReadByTheSettings)
{
    const QString dconf = QStandardPaths::findExecutable(QStringLiteral("dconf"));
    if (dconf.isEmpty())
        GTEST_SKIP() << "dconf is not installed";
    etc.addFolder("gdm3");
    banner.show(QStringLiteral("It's \"quoted\""), QStringLiteral("a\\b\nc"));
    QProcess compile;
    compile.start(dconf, {QStringLiteral("compile"), file("database"), file("dconf/db/gdm.d")});
    ASSERT_TRUE(compile.waitForFinished());
    EXPECT_EQ(compile.exitCode(), 0) << compile.readAllStandardError().constData();
    EXPECT_TRUE(content("database").contains("It's \"quoted\"\n\na\\b\nc"));
}

TEST_F(LogInBannerTest, CanBeReadByEverybody)
{
    etc.addFolder("gdm3");
    const mode_t before = ::umask(077);
    banner.show(QStringLiteral("a"), QStringLiteral("b"));
    ::umask(before);
    for (const char *name : {console, desktop, profile}) {
        EXPECT_TRUE(QFile::permissions(file(name)).testFlag(QFile::ReadOther)) << name;
        const QString folder = QFileInfo(file(name)).path();
        EXPECT_TRUE(QFile::permissions(folder).testFlags(QFile::ReadOther | QFile::ExeOther)) << name;
    }
}

TEST_F(LogInBannerTest, LeavesAProfileOfTheAdministrator)
{
    etc.addFolder("gdm3");
    etc.addFolder("dconf");
    etc.addFolder("dconf/profile");
    etc.addFile(profile, "own");
    banner.show(QStringLiteral("a"), QStringLiteral("b"));
    EXPECT_EQ(content(profile), QByteArray("own"));
}

TEST_F(LogInBannerTest, IsRemoved)
{
    etc.addFolder("gdm3");
    banner.show(QStringLiteral("a"), QStringLiteral("b"));
    etc.addFile("issue.d/other", "kept");
    banner.remove();
    EXPECT_FALSE(QFile::exists(file(console)));
    EXPECT_FALSE(QFile::exists(file(desktop)));
    EXPECT_EQ(content("issue.d/other"), QByteArray("kept"));
    banner.remove();
}

TEST_F(LogInBannerTest, WithoutRightsChangesNothing)
{
    banner.show(QStringLiteral("old"), QStringLiteral("old"));
    const AsUser user(etc.path());
    for (const char *folder : {"", "issue.d"})
        QFile::setPermissions(file(folder), QFile::ReadOwner | QFile::ExeOwner);
    banner.show(QStringLiteral("new"), QStringLiteral("new"));
    banner.remove();
    EXPECT_EQ(content(console), QByteArray("old\n\nold\n"));
    for (const char *folder : {"", "issue.d"})
        QFile::setPermissions(file(folder), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
