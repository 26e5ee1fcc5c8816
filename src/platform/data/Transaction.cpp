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
        commit();
    } catch (const RuntimeError &) {
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

/// The engine has ended the transaction by itself after some failures, such as a full disk.
void Transaction::rollBack() noexcept
{
    try {
        if (m_connection.isInTransaction())
            m_connection.execute(QStringLiteral("rollback"));
    } catch (const RuntimeError &) {
        // the engine discards what is left when the file is opened next
    }
}
