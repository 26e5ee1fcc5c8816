#include "EnvironmentText.h"
#include "PrintQt.h"
#include "ScratchVariable.h"

#include <gtest/gtest.h>

TEST(EnvironmentText, ExpandsWhatIsSetAndKeepsTheRest)
{
    const ScratchVariable folder("QUILL_TEST_FOLDER", "/opt/quill");
    const ScratchVariable empty("QUILL_TEST_EMPTY", "");
    const ScratchVariable unset("QUILL_TEST_UNSET");
    const std::pair<const char *, const char *> cases[] = {
        {"%QUILL_TEST_FOLDER%/bin", "/opt/quill/bin"},
        {"a %QUILL_TEST_FOLDER%%QUILL_TEST_FOLDER% b", "a /opt/quill/opt/quill b"},
        {"[%QUILL_TEST_EMPTY%]", "[]"},
        {"%QUILL_TEST_UNSET%x%QUILL_TEST_FOLDER%", "%QUILL_TEST_UNSET%x/opt/quill"},
        {"100 %", "100 %"},
        {"%%", "%%"},
        {"", ""},
        {"%QUILL_TEST_FOLDER", "%QUILL_TEST_FOLDER"},
    };
    for (const auto &[text, expanded] : cases)
        EXPECT_EQ(EnvironmentText::expand(QString::fromUtf8(text)), QString::fromUtf8(expanded));
}
