#pragma once

#include "FieldValue.h"

#include <QByteArrayView>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;
class IdleStatements;
class PreparedStatement;

/// One statement that the engine has prepared, with the values and the rows of one run.
///
/// All functions throw RuntimeError with the engine's message. The text passes StatementText first, and a
/// second statement behind it is refused before the first one runs.
class Statement
{
public:
    enum class Type { Null, Integer, Real, Text };

    /// Takes the statement out of \a idle where one has \a text, but for a last number in it, and puts it
    /// there at the end.
    Statement(sqlite3 *database, const QString &text, const std::shared_ptr<IdleStatements> &idle = {});
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    /// \a index counts from 1.
    void bind(int index, const FieldValue &value);
    /// True when there is a next row; the functions below then read it. A full disk, a failure to read or
    /// write, a lack of memory or a damaged file also ends the transaction and discards what it has written.
    bool step();
    /// Runs the statement to its end.
    void finish();

    /// Columns count from 0.
    int columnCount() const;
    /// As its table spells it; the text of an expression.
    QString columnName(int column) const;
    /// Empty for an expression.
    QString tableName(int column) const;
    bool isDateColumn(int column) const;

    Type type(int column) const;
    qint64 integer(int column) const;
    double real(int column) const;
    /// UTF-8, until the next step.
    QByteArrayView text(int column) const;

private:
    void prepare();
    void refuseSecondStatement(const char *rest) const;
    sqlite3_stmt *handle() const;
    [[noreturn]] void fail(int result);

    sqlite3 *m_database;
    QString m_text;
    QString m_preparedText;                 ///< a last number of the text is a parameter in it
    std::shared_ptr<IdleStatements> m_idle; ///< null for a statement that is not kept
    std::unique_ptr<PreparedStatement> m_prepared;
};
