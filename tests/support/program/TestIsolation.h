#pragma once

#include <gtest/gtest.h>

/// Gives each test of a process what the first one found: no window, no pending event, no expectation of an
/// earlier test, an empty clipboard and the palette of the style.
class TestIsolation : public testing::EmptyTestEventListener
{
public:
    static void install();

private:
    void OnTestEnd(const testing::TestInfo &test) override;
};
