#include "AddressDatabase.h"
#include "Kills.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"

#include <QProcess>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

constexpr int usualKills = 40;

/// Contacts of which a row is missing, or whose rows are of different saves.
const QString torn =
    QStringLiteral("select SrNo from Names where not exists(select 1 from Home where Home.SrNo=Names.SrNo "
                   "and hZipCode=Name) "
                   "or not exists(select 1 from Business where Business.SrNo=Names.SrNo and bCompany=Name) "
                   "or not exists(select 1 from EMails where EMails.SrNo=Names.SrNo and Email_Id=Name)");

} // namespace

TEST(KilledEditor, LeavesEachContactWholeOrAbsent)
{
    const ScratchAddressBook book;
    AddressConnection.close();
    QRandomGenerator random(11);
    const int kills = Kills::count(usualKills);
    for (int i = 0; i < kills; ++i) {
        QProcess saver;
        saver.start(QStringLiteral(QUILL_CONTACT_SAVER), {book.path()});
        const int saves = random.bounded(1, 60);
        while (saver.bytesAvailable() < saves)
            ASSERT_TRUE(saver.waitForReadyRead()) << saver.readAllStandardError().constData();
        saver.kill();
        ASSERT_TRUE(saver.waitForFinished());
        AddressDatabase::open(book.path()); // which finds damage
        AddressConnection.close();
        EXPECT_EQ(book.rows(torn), QStringList()) << i;
        EXPECT_EQ(book.rows(QStringLiteral("pragma foreign_key_check")), QStringList()) << i;
        EXPECT_NE(book.rows(QStringLiteral("select SrNo from Names")), QStringList()) << i;
    }
}
