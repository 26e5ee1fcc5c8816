#pragma once

struct sqlite3_stmt;

/// A statement as the engine has prepared it, until it is discarded.
class PreparedStatement
{
public:
    explicit PreparedStatement(sqlite3_stmt *handle)
        : m_handle(handle)
    {}
    ~PreparedStatement();
    PreparedStatement(const PreparedStatement &) = delete;
    PreparedStatement &operator=(const PreparedStatement &) = delete;

    /// Null for a text that holds no statement.
    sqlite3_stmt *handle() const { return m_handle; }

    /// Ends its run: it holds no lock and no values any more.
    void reset();

private:
    sqlite3_stmt *m_handle;
};
