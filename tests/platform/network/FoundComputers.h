#pragma once

#include "ComputerSource.h"

#include <QStringList>
#include <QTest>
#include <optional>

/// Runs a source and keeps what it finds.
class FoundComputers
{
public:
    explicit FoundComputers(ComputerSource &source)
    {
        QObject::connect(
            &source, &ComputerSource::found, &source,
            [this](const QString &name, const QString &address) { m_rows << name + u' ' + address; });
        QObject::connect(&source, &ComputerSource::finished, &source, [this](bool hasAsked) {
            ++m_ends;
            m_hasAsked = hasAsked;
        });
        source.start();
    }

    /// Whether the source could ask; nothing where it did not finish, or more than once.
    std::optional<bool> end() const
    {
        constexpr int patience = 30000; // milliseconds
        if (!QTest::qWaitFor([this] { return m_ends > 0; }, patience) || m_ends != 1)
            return std::nullopt;
        return m_hasAsked;
    }

    /// Each "NAME ADDRESS".
    const QStringList &rows() const { return m_rows; }

private:
    QStringList m_rows;
    int m_ends = 0;
    bool m_hasAsked = false;
};
