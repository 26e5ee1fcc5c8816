#include "AddressDatabase.h"
#include "Kills.h"
#include "PrintQt.h"
#include "ScratchAddressBook.h"

#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

constexpr int usualKills = 40;
constexpr int mostLooks = 1000; // at the journal of one save, about as many as it lasts

/// Contacts of which a row is missing, or whose rows are of different saves.
const QString torn =
    QStringLiteral("select SrNo from Names where not exists(select 1 from Home where Home.SrNo=Names.SrNo "
                   "and hZipCode=Name) "
                   "or not exists(select 1 from Business where Business.SrNo=Names.SrNo and bCompany=Name) "
                   "or not exists(select 1 from EMails where EMails.SrNo=Names.SrNo and Email_Id=Name)");

/// What a saver that gives no output has to say.
std::string silence(QProcess &saver)
{
    const char *end = saver.state() == QProcess::Running          ? "is running"
                      : saver.exitStatus() == QProcess::CrashExit ? "has crashed"
                                                                  : "has ended";
    return end + (": " + saver.readAllStandardError()).toStdString();
}

void waitForASave(QProcess &saver, const QString &journal)
{
    while (!QFile::exists(journal)) {
        saver.waitForReadyRead(0);
        ASSERT_EQ(saver.state(), QProcess::Running) << silence(saver);
    }
}

} // namespace

TEST(KilledEditor, LeavesEachContactWholeOrAbsent)
{
    const ScratchAddressBook book;
    const QString journal = book.path() + QStringLiteral("-journal"); // is there while a save is on
    AddressConnection.close();
    QRandomGenerator random(11);
    const int kills = Kills::count(usualKills);
    int killedInASave = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess saver;
        saver.start(QStringLiteral(QUILL_CONTACT_SAVER), {book.path()});
        const int saves = random.bounded(2, 60);
        while (saver.bytesAvailable() < saves)
            ASSERT_TRUE(saver.waitForReadyRead()) << i << ", the saver " << silence(saver);
        waitForASave(saver, journal);
        for (int looks = random.bounded(mostLooks); looks > 0 && QFile::exists(journal); --looks) {
        }
        saver.kill();
        ASSERT_TRUE(saver.waitForFinished());
        killedInASave += int(QFile::exists(journal));
        AddressDatabase::open(book.path()); // which finds damage
        AddressConnection.close();
        EXPECT_EQ(book.rows(torn), QStringList()) << i;
        EXPECT_EQ(book.rows(QStringLiteral("pragma foreign_key_check")), QStringList()) << i;
        EXPECT_NE(book.rows(QStringLiteral("select SrNo from Names")), QStringList()) << i;
    }
    RecordProperty("killedInASave", killedInASave);
    EXPECT_GT(killedInASave, kills / 10);
}
