#include "AddressDatabase.h"
#include "BookWindow.h"
#include "ErrorNumberOf.h"
#include "Forms.h"
#include "PrintQt.h"

#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

// The database cannot be opened. The load's error reaches whoever opens the window.

namespace {

struct AddressBookOpeningTest : testing::Test
{
    BookWindow window{BookWindow::Opened::No};

    QString description()
    {
        try {
            window.load();
        } catch (const RuntimeError &error) {
            return error.description();
        }
        return {};
    }
    void replaceBy(const QByteArray &bytes) const
    {
        AddressConnection.close();
        QFile file(window.book.path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
    }
};

} // namespace

TEST_F(AddressBookOpeningTest, AMissingDatabaseIsSaidSo)
{
    AddressConnection.close();
    QFile::remove(window.book.path());
    EXPECT_TRUE(description().startsWith(
        QStringLiteral("The address database \"%1\" does not exist.").arg(window.book.path())));
}

TEST_F(AddressBookOpeningTest, AFileThatIsNoDatabaseIsSaidSo)
{
    replaceBy(QByteArray(4096, 'x'));
    EXPECT_TRUE(description().contains(QStringLiteral("cannot be opened: file is not a database")));
}

TEST_F(AddressBookOpeningTest, AnEmptyFileIsSaidSo)
{
    replaceBy({});
    EXPECT_TRUE(
        description().contains(QStringLiteral("is empty, or was made by another version of the program.")));
}

TEST_F(AddressBookOpeningTest, ADamagedFileIsSaidSo)
{
    AddressConnection.close();
    QFile file(window.book.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.resize(file.size() - 4096);
    file.close();
    const QString found = description();
    EXPECT_TRUE(found.contains(QStringLiteral("is damaged: ")) || found.contains(QStringLiteral("malformed")))
        << qPrintable(found);
}

TEST_F(AddressBookOpeningTest, TheCommandsThatWorkOnTheListAreOffBeforeItFails)
{
    replaceBy("x");
    EXPECT_NE(errorNumberOf([&] { window.load(); }), 0);
    EXPECT_EQ(window.commands(), QString());
    EXPECT_EQ(window.tree().Count(), 0);
    EXPECT_FALSE(window.form().isVisible());
}

TEST_F(AddressBookOpeningTest, AClosedConnectionIsOpenedAnew)
{
    AddressConnection.close();
    window.open();
    EXPECT_TRUE(AddressConnection.isOpen());
    window.clickNode("Root");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}

TEST_F(AddressBookOpeningTest, ClosingTheWindowLeavesTheConnectionOpen)
{
    window.open();
    window.choose("mnuexitprog");
    EXPECT_TRUE(AddressConnection.isOpen());
}

TEST_F(AddressBookOpeningTest, ALockedDatabaseIsSaidInABoxAndTheWindowStaysClosed)
{
    Connection other;
    other.open(window.book.path());
    other.execute(QStringLiteral("begin exclusive"));
    window.frame.dialogs.expectBox(
        QStringLiteral("QuillOfficeToolsv2"),
        QStringLiteral("Another program is using the address database. Please try again."));
    window.open();
    EXPECT_FALSE(window.isOpen());
    other.close();
    window.open();
    window.clickNode("Root");
    EXPECT_EQ(window.names(), QStringLiteral("Anna Bell|Bea Dunn|Ben Cole|carl Bly"));
}
