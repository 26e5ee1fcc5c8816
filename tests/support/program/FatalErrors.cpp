#include "FatalErrors.h"

#include "EventGate.h"

#include <cstdlib>
#include <gtest/gtest.h>

FatalErrors::FatalErrors()
{
    EventGate::setBox([this](int number, const QString &description) {
        receiveError({number, description});
    });
    EventGate::setEnd([this](int code) { receiveEnd(code); });
}

FatalErrors::~FatalErrors()
{
    refuseAll();
    for (const Error &error : m_expected)
        ADD_FAILURE() << "fatal error " << error.number << " did not come";
    for (const int code : m_expectedEnds)
        ADD_FAILURE() << "the process did not end with " << code;
}

void FatalErrors::expect(int number, const QString &description)
{
    m_expected.append({number, description});
}

void FatalErrors::expectEnd(int code)
{
    m_expectedEnds.append(code);
}

void FatalErrors::refuseAll()
{
    EventGate::setBox([](int number, const QString &description) {
        ADD_FAILURE() << "fatal error " << number << ": " << qUtf8Printable(description);
    });
    EventGate::setEnd([](int code) { ADD_FAILURE() << "the process would end with " << code; });
}

void FatalErrors::receiveError(const Error &error)
{
    m_seen.append(error);
    const Error expected = m_expected.isEmpty() ? Error{0, {}} : m_expected.takeFirst();
    EXPECT_EQ(error.number, expected.number) << "fatal error: " << qUtf8Printable(error.description);
    if (!expected.description.isEmpty()) {
        EXPECT_EQ(error.description, expected.description);
    }
}

void FatalErrors::receiveEnd(int code)
{
    m_ends.append(code);
    if (EventGate::isBlocked()) {
        EXPECT_EQ(code, EXIT_FAILURE);
    } else if (!m_expectedEnds.removeOne(code)) {
        ADD_FAILURE() << "the process would end with " << code;
    }
}
