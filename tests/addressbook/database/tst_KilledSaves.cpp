#include "AddressDatabase.h"
#include "Kills.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"
#include "Transaction.h"

#include <QProcess>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

constexpr int usualKills = 60;
constexpr int waitMs = 1000; // for a process that would end if it did not wait

/// Contacts of which a row is missing, or whose rows are of different saves.
const QString torn =
    QStringLiteral("select SrNo from Names where not exists(select 1 from Home where Home.SrNo=Names.SrNo "
                   "and hAddress=Name) "
                   "or not exists(select 1 from Business where Business.SrNo=Names.SrNo and bAddress=Name) "
                   "or (select count(*) from EMails where EMails.SrNo=Names.SrNo and Email_Id=Name)<>2");

} // namespace

TEST(KilledSaves, LeaveEachContactWholeOrAbsent)
{
    const ScratchAddressBook book;
    AddressConnection.close();
    QRandomGenerator random(5);
    const int kills = Kills::count(usualKills);
    for (int i = 0; i < kills; ++i) {
        QProcess writer;
        writer.start(QStringLiteral(QUILL_CONTACT_WRITER), {book.path()});
        const int saves = random.bounded(1, 60);
        while (writer.bytesAvailable() < saves)
            ASSERT_TRUE(writer.waitForReadyRead()) << writer.readAllStandardError().constData();
        writer.kill();
        ASSERT_TRUE(writer.waitForFinished());
        AddressDatabase::open(book.path()); // which finds damage
        AddressConnection.close();
        EXPECT_EQ(book.rows(torn), QStringList()) << i;
        EXPECT_EQ(book.rows(QStringLiteral("pragma foreign_key_check")), QStringList()) << i;
        EXPECT_NE(book.rows(QStringLiteral("select SrNo from Names")), QStringList()) << i;
    }
}

TEST(KilledSaves, AnotherProcessWaitsForASave)
{
    const ScratchAddressBook book;
    QProcess writer;
    {
        Transaction save(AddressConnection);
        writer.start(QStringLiteral(QUILL_CONTACT_WRITER), {book.path()});
        EXPECT_FALSE(writer.waitForFinished(waitMs)) << writer.readAllStandardError().constData();
        EXPECT_EQ(writer.readAllStandardOutput(), QByteArray());
        ScratchAddressBook::addContact(QStringLiteral("Ann"));
        save.commit();
    }
    EXPECT_TRUE(writer.waitForReadyRead()) << writer.readAllStandardError().constData();
    writer.kill();
    ASSERT_TRUE(writer.waitForFinished());
    EXPECT_EQ(AddressConnection.damage(), QString());
}
