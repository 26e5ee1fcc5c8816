#include "PreparedStatement.h"

#include <sqlite3.h>

PreparedStatement::~PreparedStatement()
{
    ::sqlite3_finalize(m_handle);
}

void PreparedStatement::reset()
{
    ::sqlite3_reset(m_handle); // returns the failure of the run, which has been reported
    ::sqlite3_clear_bindings(m_handle);
}
