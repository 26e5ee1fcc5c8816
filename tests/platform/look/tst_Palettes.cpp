#include "Palettes.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double bright = std::max(luminance(a), luminance(b));
    const double dim = std::min(luminance(a), luminance(b));
    return (bright + 0.05) / (dim + 0.05);
}

} // namespace

class ReadablePalette : public testing::TestWithParam<bool>
{};

TEST_P(ReadablePalette, TextStandsOutFromItsGround)
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
