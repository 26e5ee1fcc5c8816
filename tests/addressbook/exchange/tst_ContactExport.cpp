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
