#include "AddressDatabase.h"

#include "AsUser.h"
#include "ContactRows.h"
#include "DailyCopies.h"
#include "DataError.h"
#include "Files.h"
#include "PrintQt.h"
#include "Recordset.h"
#include "ScratchAddressBook.h"

#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct AddressDatabaseTest : testing::Test
{
    /// What the user reads when the file in its present state is opened.
    QString refusal() const
    {
        try {
            OpenAddressDatabase();
        } catch (const RuntimeError &error) {
            EXPECT_EQ(error.number(), DataError::Engine);
            EXPECT_FALSE(AddressConnection.isOpen());
            return error.description();
        }
        return {};
    }
    QString file() const { return QStringLiteral("The address database \"%1\" ").arg(book.path()); }
    QString hint() const
    {
        return QStringLiteral(" Copies of the last days are in \"%1\".").arg(DailyCopies::folder());
    }
    void replaceBy(const QByteArray &bytes) const
    {
        AddressConnection.close();
        Files::write(book.path(), bytes);
    }

    ScratchAddressBook book;
};

} // namespace

TEST_F(AddressDatabaseTest, OpensTheFileInTheProgramsFolder)
{
    EXPECT_EQ(AddressDatabase::path(), book.path());
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    OpenAddressDatabase();
    EXPECT_EQ(ContactRows::name(1).name, QStringLiteral("Ann"));
}

TEST_F(AddressDatabaseTest, AMissingFileIsNamedAndNotMade)
{
    AddressConnection.close();
    ASSERT_TRUE(QFile::remove(book.path()));
    EXPECT_EQ(refusal(), file() + QStringLiteral("does not exist.") + hint());
    EXPECT_FALSE(QFile::exists(book.path()));
}

TEST_F(AddressDatabaseTest, AnEmptyFileIsRefused)
{
    replaceBy({});
    EXPECT_EQ(refusal(),
              file() + QStringLiteral("is empty, or was made by another version of the program.") + hint());
}

TEST_F(AddressDatabaseTest, AnOlderSchemaIsRefused)
{
    AddressConnection.execute(QStringLiteral("pragma user_version=0"));
    EXPECT_EQ(refusal(),
              file() + QStringLiteral("is empty, or was made by another version of the program.") + hint());
}

TEST_F(AddressDatabaseTest, GarbageIsRefused)
{
    replaceBy(QByteArray(5000, 'x'));
    EXPECT_EQ(refusal(), file() + QStringLiteral("cannot be opened: file is not a database.") + hint());
}

TEST_F(AddressDatabaseTest, WithoutCopiesNoneAreNamed)
{
    QFile::remove(DailyCopies::folder() +
                  QStringLiteral("/data97-%1.mdb").arg(QDate::currentDate().toString(Qt::ISODate)));
    replaceBy(QByteArray(5000, 'x'));
    EXPECT_EQ(refusal(), file() + QStringLiteral("cannot be opened: file is not a database."));
}

TEST_F(AddressDatabaseTest, ATruncatedFileIsRefusedAtEachPage)
{
    for (int i = 0; i < 100; ++i)
        ScratchAddressBook::addContact(QString(50, u'a'));
    AddressConnection.close();
    const QByteArray whole = Files::read(book.path());
    for (qsizetype size = 4096; size < whole.size(); size += 4096) {
        replaceBy(whole.left(size));
        const QString found = refusal();
        EXPECT_TRUE(found.contains(QLatin1String("is damaged")) || found.contains(QLatin1String("malformed")))
            << size << ' ' << found.toStdString();
    }
    replaceBy(whole);
    EXPECT_EQ(refusal(), QString());
}

TEST_F(AddressDatabaseTest, DamageThatReadingDoesNotMeetIsFound)
{
    for (int i = 0; i < 100; ++i)
        ScratchAddressBook::addContact(QString(50, u'a'));
    AddressConnection.close();
    QByteArray bytes = Files::read(book.path());
    bytes.replace(bytes.size() - 4096, 4096, QByteArray(4096, '\x7F'));
    replaceBy(bytes);
    const QString found = refusal();
    EXPECT_TRUE(found.startsWith(file() + QStringLiteral("is damaged: "))) << found.toStdString();
    EXPECT_TRUE(found.endsWith(hint()));
}

TEST_F(AddressDatabaseTest, AFileWithoutPermissionIsRefused)
{
    AddressConnection.close();
    const AsUser user(QFileInfo(book.path()).path());
    ASSERT_EQ(::chmod(book.path().toUtf8().constData(), 0), 0);
    EXPECT_TRUE(
        refusal().startsWith(file() + QStringLiteral("cannot be opened: unable to open database file.")));
}

TEST_F(AddressDatabaseTest, AFileThatMayOnlyBeReadIsShown)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    AddressConnection.close();
    const AsUser user(QFileInfo(book.path()).path());
    ASSERT_EQ(::chmod(book.path().toUtf8().constData(), 0400), 0);
    EXPECT_EQ(refusal(), QString());
    EXPECT_EQ(ContactRows::name(1).name, QStringLiteral("Ann"));
    EXPECT_THROW(ContactRows::remove(1), RuntimeError);
}

TEST_F(AddressDatabaseTest, AJournalOfAKilledProcessIsPlayedBack)
{
    ScratchAddressBook::addContact(QStringLiteral("Ann"));
    // A copy of file and journal in the middle of a commit, as a kill leaves them.
    AddressConnection.execute(QStringLiteral("pragma cache_size=1"));
    AddressConnection.execute(QStringLiteral("begin immediate"));
    for (int i = 0; i < 200; ++i)
        ScratchAddressBook::addContact(QString(50, u'b'));
    const QByteArray file = Files::read(book.path());
    const QByteArray journal = Files::read(book.path() + QStringLiteral("-journal"));
    AddressConnection.execute(QStringLiteral("rollback"));
    replaceBy(file);
    Files::write(book.path() + QStringLiteral("-journal"), journal);
    EXPECT_EQ(refusal(), QString());
    EXPECT_EQ(book.rows(QStringLiteral("select Name from Names")), QStringList(QStringLiteral("Ann")));
}
