#include "Snapshot.h"

#include "Connection.h"
#include "RuntimeError.h"

Snapshot::Snapshot(Connection &connection)
    : m_connection(connection)
{
    m_connection.execute(QStringLiteral("begin"));
}

Snapshot::~Snapshot()
{
    try {
        if (m_connection.isInTransaction())
            m_connection.execute(QStringLiteral("rollback"));
    } catch (const RuntimeError &) {
        return; // it has ended by itself
    }
}
