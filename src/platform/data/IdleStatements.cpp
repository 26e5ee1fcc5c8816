#include "IdleStatements.h"

#include "PreparedStatement.h"

#include <algorithm>

IdleStatements::IdleStatements()
{
    m_statements.reserve(most); // so that nothing is allocated later, where a lack of memory had no answer
}

IdleStatements::~IdleStatements() = default;

std::unique_ptr<PreparedStatement> IdleStatements::take(const QString &text) noexcept
{
    const auto found = std::ranges::find(m_statements, text, &Idle::text);
    if (found == m_statements.end())
        return nullptr;
    auto statement = std::move(found->statement);
    m_statements.erase(found);
    return statement;
}

void IdleStatements::keep(const QString &text, std::unique_ptr<PreparedStatement> statement) noexcept
{
    statement->reset();
    if (m_statements.size() == most)
        m_statements.erase(m_statements.begin());
    m_statements.push_back({text, std::move(statement)});
}
