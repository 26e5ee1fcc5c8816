#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FakeFrame.h"
#include "FileAttributes.h"
#include "FileDetails.h"
#include "Files.h"
#include "PrintQt.h"
#include "frmProperties.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct PropertiesTest : testing::Test
{
    FakeFrame frame;
    frmProperties *form = new frmProperties; // deleted when it is closed
    QString file = frame.home.file(QStringLiteral("a file.txt"));

    void showFile(const QString &path)
    {
        form->FileName = path;
        form->load();
    }
    QString text(const char *label) const { return form->member<QLabel>(QString::fromLatin1(label)).text(); }
    void press(const char *button) const
    {
        QTest::mouseClick(&form->member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    void expectNoFile() const
    {
        EXPECT_EQ(text("lblAttr"), QStringLiteral("No File Attributes"));
        EXPECT_EQ(text("lblModified"), QStringLiteral("File hasn't been saved yet"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("0 Bytes"));
    }
};

} // namespace

TEST_F(PropertiesTest, ShowsAFilesDetails)
{
    Files::write(file, QByteArray(2000, 'x'));
    FileAttributes::set(file, FileAttributes::ReadOnly);
    showFile(file);
    EXPECT_EQ(form->Caption(), QStringLiteral("Properties"));
    EXPECT_EQ(text("lblFileName"), file);
    EXPECT_EQ(text("lblModified"), QLocale().toString(FileDetails::of(file).modified, QLocale::ShortFormat));
    EXPECT_EQ(text("lblSize"), QStringLiteral("1.9531 KB"));
    EXPECT_EQ(text("lblAttr"), QStringLiteral("Read-Only"));
}

TEST_F(PropertiesTest, AMissingFileHasNotBeenSavedYet)
{
    showFile(file);
    EXPECT_EQ(text("lblFileName"), file);
    expectNoFile();
}

TEST_F(PropertiesTest, RefreshReadsTheFileAgain)
{
    showFile(file);
    Files::write(file, QByteArray(100, 'x'));
    press("cmdRefresh");
    EXPECT_EQ(text("lblSize"), QStringLiteral("100Bytes"));
    QFile::remove(file);
    press("cmdRefresh");
    expectNoFile();
}

TEST_F(PropertiesTest, OkClosesIt)
{
    showFile(file);
    press("cmdOK");
    EXPECT_FALSE(form->isLoaded());
}

TEST_F(PropertiesTest, OtherErrorsAreNotCaught)
{
    Files::write(file, "x");
    const AsUser user(frame.home.path());
    const QByteArray folder = QFile::encodeName(frame.home.path());
    ASSERT_EQ(::chmod(folder.constData(), 0), 0);
    EXPECT_EQ(errorNumberOf([&] { showFile(file); }), 70);
    ASSERT_EQ(::chmod(folder.constData(), 0700), 0);
    delete form;
}

TEST_F(PropertiesTest, SizesAreComparedAsText)
{
    const auto sizeOf = [this](int length) {
        Files::write(file, QByteArray(length, 'x'));
        return frmProperties::GetFileSize(file);
    };
    EXPECT_EQ(sizeOf(5), QStringLiteral("0.0049 KB"));
    EXPECT_EQ(sizeOf(100), QStringLiteral("100Bytes"));
    EXPECT_EQ(sizeOf(1024), QStringLiteral("1 KB"));
    EXPECT_EQ(sizeOf(1020000), QStringLiteral("1020000Bytes"));
    EXPECT_EQ(sizeOf(1048576), QStringLiteral("1024 KB"));
}
