#include "ComputerSearch.h"

#include "ComputerSource.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// Finds its names, and finishes as it is told.
class SourceOfNames : public ComputerSource
{
public:
    enum class End { AtOnce, Later, Never, CannotAsk };

    SourceOfNames(End end, const QStringList &names = {})
        : m_end(end)
        , m_names(names)
    {}

    void start() override
    {
        for (const QString &name : m_names)
            Q_EMIT found(name, {});
        if (m_end == End::Later)
            QTimer::singleShot(1, this, [this] {
                Q_EMIT found(QStringLiteral("late"), {});
                Q_EMIT finished(true);
            });
        else if (m_end != End::Never)
            Q_EMIT finished(m_end == End::AtOnce);
    }

private:
    End m_end;
    QStringList m_names;
};

using End = SourceOfNames::End;

template<class... Each>
std::optional<QList<Computer>> searchBy(Each... each)
{
    ComputerSearch::Sources sources;
    (sources.push_back(std::make_unique<SourceOfNames>(each)), ...);
    return ComputerSearch::computers(sources);
}

} // namespace

TEST(ComputerSearch, TakesWhatAllSourcesFind)
{
    ComputerSearch::Sources sources;
    sources.push_back(
        std::make_unique<SourceOfNames>(End::AtOnce, QStringList{QStringLiteral("b"), QStringLiteral("a")}));
    sources.push_back(std::make_unique<SourceOfNames>(End::Later, QStringList{QStringLiteral("B")}));
    const auto found = ComputerSearch::computers(sources);
    EXPECT_EQ(found,
              QList<Computer>(
                  {{QStringLiteral("A"), {}}, {QStringLiteral("B"), {}}, {QStringLiteral("LATE"), {}}}));
}

TEST(ComputerSearch, EndsWithoutASourceThatNeverDoes)
{
    ComputerSearch::Sources sources;
    sources.push_back(std::make_unique<SourceOfNames>(End::Never, QStringList{QStringLiteral("a")}));
    sources.push_back(std::make_unique<SourceOfNames>(End::CannotAsk));
    EXPECT_EQ(ComputerSearch::computers(sources), QList<Computer>({{QStringLiteral("A"), {}}}));
}

TEST(ComputerSearch, OneSourceIsEnough)
{
    EXPECT_EQ(searchBy(End::CannotAsk, End::AtOnce, End::CannotAsk), QList<Computer>());
}

TEST(ComputerSearch, WithoutAnySourceThereIsNoAnswer)
{
    EXPECT_EQ(searchBy(End::CannotAsk, End::CannotAsk, End::CannotAsk), std::nullopt);
}
