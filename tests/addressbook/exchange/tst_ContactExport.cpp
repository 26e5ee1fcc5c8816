#include "AddressDatabase.h"
#include "ContactExport.h"
#include "ContactRows.h"
#include "RuntimeError.h"
#include "ScratchAddressBook.h"
#include "Transaction.h"

#include <QSet>
#include <atomic>
#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

/// Another program that gives all contacts a new comment, again and again.
void changeAll(const QString &path, const std::atomic<bool> &isDone, std::atomic<int> &changes)
{
    Connection connection;
    connection.open(path);
    while (!isDone)
        connection.execute(QStringLiteral("update Names set Comment='%1'").arg(++changes));
}

} // namespace

TEST(ContactExport, IsOfOneStateOfTheDatabase)
{
    const ScratchAddressBook book;
    {
        Transaction transaction(AddressConnection);
        for (int i = 0; i < 300; ++i)
            ScratchAddressBook::addContact(QStringLiteral("Ann"));
        transaction.commit();
    }
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
