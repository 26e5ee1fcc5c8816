#pragma once

#include <QStringList>
#include <gtest/gtest.h>

/// Gives each test of a process what the first one found: no window, no pending event, no expectation of an
/// earlier test, an empty clipboard, the palette of the style and the icon theme of when this was made.
class TestIsolation : public testing::EmptyTestEventListener
{
public:
    static void install();

    TestIsolation();

private:
    void OnTestEnd(const testing::TestInfo &test) override;
    void restoreIconTheme() const;

    const QString m_iconTheme;
    const QString m_fallbackIconTheme;
    const QStringList m_iconThemePaths;
};
