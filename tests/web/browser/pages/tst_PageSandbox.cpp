#include "AsUser.h"
#include "BrowserWindow.h"
#include "Files.h"
#include "PrintQt.h"

#include <QProcess>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/// The number behind \a name in the status of \a process.
int statusOf(pid_t process, const QByteArray &name)
{
    for (const QByteArray &line : Files::read(QStringLiteral("/proc/%1/status").arg(process)).split('\n')) {
        if (line.startsWith(name + ":"))
            return line.mid(name.size() + 1).simplified().split(' ').constFirst().toInt();
    }
    return -1;
}

/// The same test in a process that has never been root's.
void runAsUser(const BrowserWindow &browser)
{
    const QString program = QCoreApplication::applicationFilePath();
    const QString home = browser.frame.home.path();
    const AsUser user(home);
    if (::faccessat(AT_FDCWD, QFile::encodeName(program).constData(), X_OK, AT_EACCESS) != 0)
        GTEST_SKIP() << "an ordinary user may not start " << qUtf8Printable(program);
    QProcess same;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home);
    environment.insert(QStringLiteral("TMPDIR"), home);
    same.setProcessEnvironment(environment);
    same.setProcessChannelMode(QProcess::MergedChannels);
    same.start(program, {QStringLiteral("--gtest_filter=PageSandbox.*")});
    EXPECT_TRUE(same.waitForFinished(60000));
    const QByteArray said = same.readAll();
    EXPECT_EQ(same.exitCode(), EXIT_SUCCESS) << said.constData();
    EXPECT_TRUE(said.contains("PASSED")) << said.constData();
}

} // namespace

TEST(PageSandbox, PagesOfAnOrdinaryUserAreInASandbox)
{
    BrowserWindow browser;
    if (::geteuid() == 0) {
        runAsUser(browser);
        return;
    }
    browser.server.titled("/", "mine");
    browser.open(QStringLiteral("/"));
    browser.waitForTitle(QStringLiteral("mine"));
    const pid_t page = browser.renderer();
    ASSERT_GT(page, 0);
    EXPECT_EQ(statusOf(page, "Seccomp"), 2); // by a filter
    EXPECT_FALSE(qEnvironmentVariableIsSet("QTWEBENGINE_DISABLE_SANDBOX"));
}
