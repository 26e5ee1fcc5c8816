#include "AddressDatabase.h"
#include "ContactExport.h"
#include "ContactRows.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"

#include <QSet>
#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

/// Contacts 1 to \a count, who have nothing but a name.
void addContacts(int count)
{
    const QString numbers =
        QStringLiteral("with recursive n(i) as (select 1 union all select i+1 from n where i<%1) ")
            .arg(count);
    for (const char *statement : {"insert into Names select i,1,'','Ann','','',null from n",
                                  "insert into Home select i,'',1,'','','','' from n",
                                  "insert into Business select i,'',1,'','','','','','','','' from n"})
        AddressConnection.execute(numbers + QLatin1String(statement));
}

/// Another program that gives all contacts a new comment, again and again.
void changeAll(const QString &path, const std::atomic<bool> &isDone, std::atomic<int> &changes)
{
    Connection connection;
    connection.open(path);
    while (!isDone)
        connection.execute(QStringLiteral("update Names set Comment='%1'").arg(++changes));
}

/// The same for the first contact alone, which is quicker.
void changeFirst(const QString &path, const std::atomic<bool> &isDone, std::atomic<int> &changes)
{
    Connection connection;
    connection.open(path);
    while (!isDone) {
        connection.execute(QStringLiteral("update Names set Comment='%1' where SrNo=1").arg(changes + 1));
        ++changes;
    }
}

} // namespace

TEST(ContactExport, IsOfOneStateOfTheDatabase)
{
    const ScratchAddressBook book;
    addContacts(300);
    std::atomic<bool> isDone = false;
    std::atomic<int> changes = 0;
    auto other = std::async(std::launch::async, [&] { changeAll(book.path(), isDone, changes); });
    while (changes < 2 && other.wait_for(0s) != std::future_status::ready)
        std::this_thread::yield();
    for (int round = 0; round < 5; ++round) {
        QSet<QString> comments;
        for (const Contact &contact : ContactExport::all())
            comments.insert(contact.comment);
        EXPECT_EQ(comments.size(), 1);
    }
    isDone = true;
    EXPECT_NO_THROW(other.get());
}

/// The comment says which change the export has read, so the others came while it went on.
TEST(ContactExport, OthersCanWriteAsSoonAsTheRowsAreRead)
{
    const ScratchAddressBook book;
    addContacts(5000);
    std::atomic<bool> isDone = false;
    std::atomic<int> changes = 0;
    auto other = std::async(std::launch::async, [&] { changeFirst(book.path(), isDone, changes); });
    while (changes < 2 && other.wait_for(0s) != std::future_status::ready)
        std::this_thread::yield();
    const QList<Contact> contacts = ContactExport::all();
    const int changesAtTheEnd = changes;
    isDone = true;
    EXPECT_NO_THROW(other.get());
    EXPECT_GT(changesAtTheEnd, contacts[0].comment.toInt() + 3);
}

TEST(ContactExport, EachContactHasItsOwnRowsAndMayMissSome)
{
    const ScratchAddressBook book;
    ContactRows::addName(5, {.groupId = 1, .name = QStringLiteral("Ann")});
    ContactRows::addName(2, {.groupId = 1, .name = QStringLiteral("Bob")});
    ContactRows::addEMails(2, {QStringLiteral("b"), QStringLiteral("a")});
    ContactRows::addHome(2, {.address = QStringLiteral("1 Lane"), .cityId = 1});
    ContactRows::addBusiness(5, {.cityId = 1, .company = QStringLiteral("Works")});
    const QList<Contact> contacts = ContactExport::all();
    ASSERT_EQ(contacts.size(), 2);
    EXPECT_EQ(contacts[0], (Contact{.name = QStringLiteral("Ann"), .company = QStringLiteral("Works")}));
    EXPECT_EQ(contacts[1], (Contact{.name = QStringLiteral("Bob"),
                                    .eMails = {QStringLiteral("b"), QStringLiteral("a")},
                                    .home = {.address = QStringLiteral("1 Lane")}}));
}
