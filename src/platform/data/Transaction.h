#pragma once

class Connection;

/// One transaction around several statements: after a crash the file has all that they wrote or nothing.
///
///     Transaction transaction(connection);
///     ...
///     transaction.commit();
///
/// While it is open no other process can write. Between its beginning and its end only one can be open.
class Transaction
{
public:
    /// What the destructor does with what was written when an exception or a return has passed commit by.
    /// After a full disk, a failure to read or write, a lack of memory or a damaged file nothing is kept.
    enum class Unfinished { Keep, Discard };

    /// Waits for another process that writes. Throws RuntimeError where that does not end.
    explicit Transaction(Connection &connection, Unfinished unfinished = Unfinished::Discard);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    /// Throws RuntimeError; nothing of the transaction is then in the file.
    void commit();

private:
    void keep() noexcept;
    void rollBack() noexcept;

    Connection &m_connection;
    Unfinished m_unfinished;
    bool m_isOpen = true;
};
