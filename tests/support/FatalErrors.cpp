#include "FatalErrors.h"

#include "EventGate.h"

#include <gtest/gtest.h>

FatalErrors::FatalErrors()
{
    EventGate::setBox([this](int number, const QString &description) { receive({number, description}); });
    EventGate::setEnd([this] { ++m_ends; });
}

FatalErrors::~FatalErrors()
{
    refuseAll();
    for (const Error &error : m_expected)
        ADD_FAILURE() << "fatal error " << error.number << " did not come";
}

void FatalErrors::expect(int number, const QString &description)
{
    m_expected.append({number, description});
}

void FatalErrors::refuseAll()
{
    EventGate::setBox([](int number, const QString &description) {
        ADD_FAILURE() << "fatal error " << number << ": " << qUtf8Printable(description);
    });
    EventGate::setEnd([] {});
}

void FatalErrors::receive(const Error &error)
{
    m_seen.append(error);
    const Error expected = m_expected.isEmpty() ? Error{0, {}} : m_expected.takeFirst();
    EXPECT_EQ(error.number, expected.number) << "fatal error: " << qUtf8Printable(error.description);
    if (!expected.description.isEmpty())
        EXPECT_EQ(error.description, expected.description);
}
