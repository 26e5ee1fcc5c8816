#include "AddressDatabase.h"
#include "ContactRows.h"
#include "Recordset.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"
#include "SmallDisk.h"
#include "Transaction.h"
#include "modGetFunctions.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

/// Adds a contact as the editor does; false where the disk has no room for it.
bool save(QString &complaint)
{
    try {
        Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
        const qint32 number = NextSrNo();
        ContactRows::addName(number,
                             {.groupId = 1, .name = QStringLiteral("Ann"), .comment = QString(255, u'c')});
        ContactRows::addHome(number, {.address = QString(100, u'h'), .cityId = 1});
        ContactRows::addBusiness(number, {.address = QString(100, u'b'), .cityId = 1});
        transaction.commit();
        return true;
    } catch (const RuntimeError &error) {
        complaint = error.description();
        return false;
    }
}

QString whole()
{
    Recordset rows;
    rows.open(QStringLiteral("select count(*) from Names,Home,Business where Names.SrNo=Home.SrNo and "
                             "Names.SrNo=Business.SrNo"),
              AddressConnection);
    return rows.field(0).text();
}

} // namespace

TEST(SmallDisk, AFullDiskLeavesEachContactWholeOrAbsent)
{
    const ScratchAddressBook book;
    AddressConnection.close();
    const SmallDisk disk(400 * 1024);
    if (!disk.isMounted())
        GTEST_SKIP() << "this user may not mount a file system";
    const QString path = disk.path() + QStringLiteral("/data97.mdb");
    ASSERT_TRUE(QFile::copy(book.path(), path));
    AddressDatabase::open(path);
    QString complaint;
    int saved = 0;
    while (saved < 5000 && save(complaint))
        ++saved;
    EXPECT_GT(saved, 50);
    EXPECT_EQ(complaint, QStringLiteral("database or disk is full"));
    EXPECT_FALSE(AddressConnection.isInTransaction());
    EXPECT_EQ(whole(), QString::number(saved));

    AddressDatabase::open(path); // which finds damage
    EXPECT_EQ(whole(), QString::number(saved));
    Recordset names;
    names.open(QStringLiteral("select count(*) from Names"), AddressConnection);
    EXPECT_EQ(names.field(0).text(), QString::number(saved));
    AddressConnection.close();
}
