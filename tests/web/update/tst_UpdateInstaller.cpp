#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ScratchProgramFolder.h"
#include "UpdateInstaller.h"

#include <QFile>
#include <QTest>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

constexpr QFile::Permissions program = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

struct UpdateInstallerTest : testing::Test
{
    void add(QFile::Permissions permissions) const
    {
        folder.addFile("update.exe", "#!/bin/sh\npwd > started\n");
        QFile::setPermissions(QString::fromUtf8(folder.file("update.exe")), permissions);
    }
    bool hasStarted() const { return QFile::exists(QString::fromUtf8(folder.file("started"))); }
    static int error()
    {
        return errorNumberOf([] { UpdateInstaller::start(); });
    }

    ScratchProgramFolder folder;
};

} // namespace

TEST_F(UpdateInstallerTest, StartsInTheProgramsFolder)
{
    add(program);
    EXPECT_EQ(error(), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        QFile file(QString::fromUtf8(folder.file("started")));
        return file.open(QFile::ReadOnly) && file.readAll() == folder.path().toUtf8() + '\n';
    }));
}

TEST_F(UpdateInstallerTest, ThatIsMissingIsNotFound)
{
    EXPECT_EQ(error(), ErrorNumber::FileNotFound);
}

TEST_F(UpdateInstallerTest, ThatIsNoProgramIsRefused)
{
    add(QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(error(), ErrorNumber::PermissionDenied);
    ::unlink(folder.file("update.exe").constData());
    folder.addFolder("update.exe");
    EXPECT_EQ(error(), ErrorNumber::PermissionDenied);
}

TEST_F(UpdateInstallerTest, ThatOthersMayWriteIsRefused)
{
    for (const QFile::Permission others : {QFile::WriteGroup, QFile::WriteOther}) {
        add(program | others);
        EXPECT_EQ(error(), ErrorNumber::PermissionDenied);
    }
    EXPECT_FALSE(hasStarted());
}

TEST_F(UpdateInstallerTest, ThatIsALinkIsRefused)
{
    add(program);
    ::rename(folder.file("update.exe").constData(), folder.file("real").constData());
    folder.addLink("update.exe", "real");
    EXPECT_EQ(error(), ErrorNumber::PermissionDenied);
}

TEST_F(UpdateInstallerTest, OfAnotherUserIsRefused)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file to another user";
    add(program | QFile::ReadOther | QFile::ExeOther);
    ASSERT_EQ(::chown(folder.file("update.exe").constData(), 12345, gid_t(-1)), 0);
    EXPECT_EQ(error(), ErrorNumber::PermissionDenied);
}

TEST_F(UpdateInstallerTest, ThatDoesNotRunIsAnError)
{
    folder.addFile("update.exe", "#!/no/such/interpreter\n");
    QFile::setPermissions(QString::fromUtf8(folder.file("update.exe")), program);
    EXPECT_EQ(error(), ErrorNumber::PathFileAccessError);
}
