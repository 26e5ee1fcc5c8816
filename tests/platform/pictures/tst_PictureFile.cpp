#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FileNames.h"
#include "PictureFile.h"
#include "PictureFixture.h"
#include "PrintQt.h"
#include "QtMessages.h"
#include "RuntimeError.h"
#include "ScratchFolder.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QtEndian>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct PictureFileTest : testing::Test
{
    QString path(const QByteArray &name) const { return FileNames::fromBytes(scratch.file(name)); }
    int errorOf(const QByteArray &name) const
    {
        return errorNumberOf([&] { PictureFile::read(path(name)); });
    }

    ScratchFolder scratch;
    PictureFixture sample = PictureFixture::named("gif/plain.gif");
};

struct PicturesOfOthersTest : testing::TestWithParam<PictureFixture>
{};

/// Programs differ in rounding where JPEG's waves become colours.
int toleranceOf(const PictureFixture &fixture)
{
    return fixture.name.starts_with("jpeg/") ? 4 : 0;
}

/// Metafiles with what is round or slanted have tests of their own: each program smooths it in its way.
std::vector<PictureFixture> exactOnes()
{
    std::vector<PictureFixture> fixtures = PictureFixture::all();
    std::erase_if(fixtures, [](const PictureFixture &fixture) { return fixture.name == "wmf/shapes.wmf"; });
    return fixtures;
}

/// A bitmap of one colour, of as many pixels to the side, in runs.
QByteArray largeBitmap(int side)
{
    QByteArray row = QByteArray("\xFF\x01", 2).repeated(side / 255);
    row += char(side % 255);
    row += QByteArray("\x01\0\0", 3);
    const QByteArray rows = row.repeated(side) + QByteArray("\0\x01", 2);
    QByteArray header = PictureFixture::named("bmp/rle8.bmp").bytes();
    header.truncate(qFromLittleEndian<quint32>(header.constData() + 10));
    qToLittleEndian<quint32>(quint32(side), header.data() + 18);
    qToLittleEndian<quint32>(quint32(side), header.data() + 22);
    return header + rows;
}

} // namespace

TEST_P(PicturesOfOthersTest, HaveThePixelsThatOthersSee)
{
    const LoadedPicture picture = PictureFile::decode(GetParam().bytes());
    EXPECT_LE(largestDifference(picture.pixels, GetParam().pixels()), toleranceOf(GetParam()));
    EXPECT_LE(largestDifference(picture.shown, GetParam().shown()), toleranceOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, PicturesOfOthersTest, testing::ValuesIn(exactOnes()),
                         testNameOf<testing::TestParamInfo<PictureFixture>>);

/// Bitmaps are read from the file itself, not from its bytes in memory.
TEST_F(PictureFileTest, BitmapsAreTheSameFromTheirFileAndFromItsBytes)
{
    int wholes = 0;
    for (const PictureFixture &fixture : PictureFixture::all()) {
        const QByteArray whole = fixture.bytes();
        if (!whole.startsWith("BM"))
            continue;
        ++wholes;
        for (const qsizetype size :
             {whole.size(), whole.size() - 1, whole.size() / 2, qsizetype(60), qsizetype(20)}) {
            const QByteArray bytes = whole.first(qMin(size, whole.size()));
            scratch.addFile("a.bmp", bytes);
            const int error = errorNumberOf([&] { PictureFile::decode(bytes); });
            EXPECT_EQ(errorOf("a.bmp"), error) << fixture.name << ' ' << size;
            if (error == 0) {
                EXPECT_EQ(PictureFile::read(path("a.bmp")).pixels, PictureFile::decode(bytes).pixels)
                    << fixture.name << ' ' << size;
            }
        }
    }
    EXPECT_GT(wholes, 10);
}

TEST_F(PictureFileTest, ReadsAFileWhateverItsEnding)
{
    for (const char *name : {"a.gif", "a.jpg", "a.txt", "a", "\xFF.gif"}) {
        scratch.addFile(name, sample.bytes());
        EXPECT_EQ(largestDifference(PictureFile::read(path(name)).pixels, sample.pixels()), 0) << name;
    }
}

TEST_F(PictureFileTest, OtherKindsAreRefusedWhateverTheirEnding)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(sample.pixels().save(&buffer, "png"));
    scratch.addFile("png.gif", png);
    scratch.addFile("svg.jpg", "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>");
    scratch.addFile("xbm.bmp", "#define a_width 8\n#define a_height 1\nstatic char a_bits[] = {0xFF};\n");
    scratch.addFile("ppm.tga", "P3 1 1 255 1 2 3\n");
    scratch.addFile("empty.ico");
    for (const char *name : {"png.gif", "svg.jpg", "xbm.bmp", "ppm.tga", "empty.ico"})
        EXPECT_EQ(errorOf(name), ErrorNumber::InvalidPicture) << name;
}

TEST_F(PictureFileTest, AMissingFileIsNotLookedForUnderOtherNames)
{
    scratch.addFile("picture.gif", sample.bytes());
    EXPECT_EQ(errorOf("picture"), ErrorNumber::FileNotFound);
    scratch.addLink("lost", "nowhere");
    EXPECT_EQ(errorOf("lost"), ErrorNumber::FileNotFound);
}

TEST_F(PictureFileTest, WhatIsNoFileIsAnError)
{
    scratch.addFolder("folder");
    ASSERT_EQ(::mkfifo(scratch.file("pipe").constData(), 0600), 0);
    scratch.addLink("device", "/dev/zero");
    for (const char *name : {"folder", "pipe", "device"})
        EXPECT_EQ(errorOf(name), ErrorNumber::PathFileAccessError) << name;
}

TEST_F(PictureFileTest, AFileThatMayNotBeReadIsAnError)
{
    scratch.addFile("secret.gif", sample.bytes());
    ASSERT_EQ(::chmod(scratch.file("secret.gif").constData(), 0), 0);
    const AsUser user(scratch.path());
    EXPECT_EQ(errorOf("secret.gif"), ErrorNumber::PermissionDenied);
}

TEST_F(PictureFileTest, ThePictureStaysWhenItsFileIsReplacedOrRemoved)
{
    scratch.addFile("a.gif", sample.bytes());
    const LoadedPicture picture = PictureFile::read(path("a.gif"));
    scratch.addFile("a.gif", "something else");
    EXPECT_EQ(largestDifference(picture.pixels, sample.pixels()), 0);
    ASSERT_TRUE(QFile::remove(path("a.gif")));
    EXPECT_EQ(largestDifference(picture.shown, sample.shown()), 0);
    EXPECT_EQ(errorOf("a.gif"), ErrorNumber::FileNotFound);
}

/// It has holes and takes no room on the disk, but would in memory.
TEST_F(PictureFileTest, AFileOverTheLimitIsNotRead)
{
    scratch.addFile("a.bmp", PictureFixture::named("bmp/24.bmp").bytes());
    const qint64 size = 64 * PictureLimit::ofThisComputer();
    ASSERT_EQ(::truncate(scratch.file("a.bmp").constData(), size), 0);
    EXPECT_EQ(errorOf("a.bmp"), ErrorNumber::InvalidPicture);
}

TEST_F(PictureFileTest, APictureOverTheLimitIsAnErrorThatSaysSo)
{
    constexpr qint64 mebibyte = 1 << 20;
    const QByteArray bytes = largeBitmap(1500);
    EXPECT_EQ(PictureFile::decode(bytes, 9 * mebibyte).pixels.size(), QSize(1500, 1500));
    try {
        PictureFile::decode(bytes, 8 * mebibyte);
        FAIL() << "it was read";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
        EXPECT_TRUE(error.description().contains(u"too large")) << qUtf8Printable(error.description());
    }
}

TEST_F(PictureFileTest, APictureOverQtsOwnLimitIsRead)
{
    QtMessages::expect(QStringLiteral("Rejecting image"));
    constexpr int side = 8200; // 256.5 MiB, as Qt counts four bytes for each pixel
    QByteArray bytes = largeBitmap(side);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    ASSERT_TRUE(QImageReader(&buffer).read().isNull());
    const LoadedPicture picture = PictureFile::decode(bytes, qint64(1) << 30);
    ASSERT_EQ(picture.pixels.size(), QSize(side, side));
    EXPECT_EQ(picture.pixels.pixel(side - 1, 0), qRgb(255, 0, 0));
}

TEST_F(PictureFileTest, QtsLimitIsAsBeforeAfterwards)
{
    const int before = QImageReader::allocationLimit();
    PictureFile::decode(sample.bytes(), qint64(1) << 40);
    EXPECT_EQ(QImageReader::allocationLimit(), before);
    EXPECT_NE(errorNumberOf([&] { PictureFile::decode(sample.bytes().first(20)); }), 0);
    EXPECT_EQ(QImageReader::allocationLimit(), before);
}

TEST_F(PictureFileTest, TheLimitOfThisComputerIsAQuarterOfItsMemory)
{
    const qint64 memory = qint64(::sysconf(_SC_PHYS_PAGES)) * ::sysconf(_SC_PAGESIZE);
    EXPECT_NEAR(double(PictureLimit::ofThisComputer()), double(memory) / 4, double(memory) / 100);
}

TEST_F(PictureFileTest, WhatIsShownIsThePixelsWhereNothingDiffers)
{
    for (const char *name :
         {"jpeg/plain.jpg", "jpeg/turned-1.jpg", "gif/plain.gif", "tga/color-24-raw-bl.tga"}) {
        const LoadedPicture picture = PictureFile::decode(PictureFixture::named(name).bytes());
        EXPECT_EQ(picture.shown.cacheKey(), picture.pixels.cacheKey()) << name;
    }
}

TEST_F(PictureFileTest, IsUprightAsTheCameraHeldIt)
{
    const LoadedPicture picture = PictureFile::decode(PictureFixture::named("jpeg/turned-6.jpg").bytes());
    EXPECT_EQ(picture.pixels.size(), QSize(16, 24));
    EXPECT_EQ(picture.shown.cacheKey(), picture.pixels.cacheKey());
}

TEST_F(PictureFileTest, WhatIsShownIsInTheScreensColours)
{
    const LoadedPicture picture = PictureFile::decode(PictureFixture::named("jpeg/profile.jpg").bytes());
    EXPECT_EQ(picture.shown.colorSpace(), QColorSpace(QColorSpace::SRgb));
    EXPECT_NE(picture.pixels.colorSpace(), QColorSpace(QColorSpace::SRgb));
    EXPECT_GT(largestDifference(picture.shown, picture.pixels), 100);
}
