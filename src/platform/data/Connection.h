#pragma once

#include <QString>
#include <memory>

struct sqlite3;
class IdleStatements;
class Statement;

/// A connection to one database file, through which statements run. Each statement is a transaction by itself
/// unless a Transaction is around it.
///
/// In statements texts are equal and ordered by TextCollation where their column asks for it, "like" takes
/// "%" and "_", and day() and month() read dates. A text in double quotes is no text. Relations are enforced.
/// A file that another process has locked is waited for, five seconds at most.
///
/// The functions throw RuntimeError with the numbers of DataError.
class Connection
{
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens the database file \a path, a native path, which has to exist; a file that may only be read can
    /// be opened. What was open before is closed, also where this throws.
    void open(const QString &path);
    void close();
    bool isOpen() const { return m_database != nullptr; }

    /// Runs one statement that changes data.
    void execute(const QString &statement);
    bool isInTransaction() const;

    /// What is wrong with the file, in the engine's words; an empty text when nothing is. Reads the whole
    /// file.
    QString damage();
    /// Replaces the database file \a path by a copy of this one, both as they are now. Half a copy may be
    /// left after a failure.
    void copyTo(const QString &path);

    /// For Recordset. Statements are kept for the next time that one with their text is asked for. Throws
    /// DataError::ClosedConnection.
    std::unique_ptr<Statement> prepare(const QString &statement);

private:
    sqlite3 *handle() const;
    void configure();

    sqlite3 *m_database = nullptr;
    std::shared_ptr<IdleStatements> m_idle; ///< of the open file
};
