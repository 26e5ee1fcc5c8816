#include "Colors.h"
#include "Palettes.h"

#include <gtest/gtest.h>

class ReadablePalette : public testing::TestWithParam<bool>
{};

TEST_P(ReadablePalette, TextContrastsWithItsBackground)
{
    const QPalette palette = GetParam() ? Palettes::dark() : Palettes::light();
    constexpr double readable = 4.5;
    EXPECT_GT(contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), readable);
    EXPECT_GT(contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), readable);
    EXPECT_GT(contrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button)), readable);
    EXPECT_GT(contrast(palette.color(QPalette::Link), palette.color(QPalette::Base)), readable);
    constexpr double readableLarge = 3.0;
    EXPECT_GT(contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
              readableLarge);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ReadablePalette, testing::Bool());
