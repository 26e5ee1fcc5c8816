#pragma once

#include <QString>
#include <memory>
#include <vector>

class PreparedStatement;

/// The statements of one connection that nobody runs, by their texts. To prepare a statement takes the engine
/// longer than to add a row by it. Those that were used last are kept.
class IdleStatements
{
public:
    static constexpr int most = 32;

    IdleStatements();
    ~IdleStatements();
    IdleStatements(const IdleStatements &) = delete;
    IdleStatements &operator=(const IdleStatements &) = delete;

    /// Null where none has \a text.
    std::unique_ptr<PreparedStatement> take(const QString &text) noexcept;
    /// Ends the run of \a statement.
    void keep(const QString &text, std::unique_ptr<PreparedStatement> statement) noexcept;

private:
    struct Idle
    {
        QString text;
        std::unique_ptr<PreparedStatement> statement;
    };

    std::vector<Idle> m_statements; ///< the one that was used last is the last one
};
