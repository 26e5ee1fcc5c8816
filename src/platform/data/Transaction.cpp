#include "Transaction.h"

#include "Connection.h"
#include "RuntimeError.h"

Transaction::Transaction(Connection &connection, Unfinished unfinished)
    : m_connection(connection)
    , m_unfinished(unfinished)
{
    m_connection.execute(QStringLiteral("begin immediate"));
}

Transaction::~Transaction()
{
    if (!m_isOpen)
        return;
    if (m_unfinished == Unfinished::Keep)
        keep();
    else
        rollBack();
}

/// The exception that has led here says what was wrong, so that of a commit is left out.
void Transaction::keep() noexcept
{
    try {
        if (m_connection.isInTransaction())
            commit();
    } catch (...) {
        return;
    }
}

void Transaction::commit()
{
    m_isOpen = false;
    try {
        m_connection.execute(QStringLiteral("commit"));
    } catch (...) {
        rollBack();
        throw;
    }
}

/// A severe failure, such as a full disk, has ended the transaction already.
void Transaction::rollBack() noexcept
{
    try {
        if (m_connection.isInTransaction())
            m_connection.execute(QStringLiteral("rollback"));
    } catch (...) {
        // the engine discards what is left when the file is opened next
    }
}
