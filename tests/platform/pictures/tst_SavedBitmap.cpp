#include "AsUser.h"
#include "ErrorNumberOf.h"
#include "FileNames.h"
#include "Files.h"
#include "Folder.h"
#include "PictureFile.h"
#include "PictureFixture.h"
#include "PrintQt.h"
#include "RuntimeError.h"
#include "ScratchFolder.h"
#include "SmallDisk.h"

#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct SavedBitmapTest : testing::Test
{
    QString path(const QByteArray &name) const { return FileNames::fromBytes(scratch.file(name)); }
    QStringList files() const { return Folder::files(scratch.path(), Folder::Hidden::Include); }
    int errorOf(const QImage &image, const QByteArray &name) const
    {
        return errorNumberOf([&] { PictureFile::saveBitmap(image, path(name)); });
    }
    QImage sample(const char *name) const
    {
        return PictureFile::decode(PictureFixture::named(name).bytes()).pixels;
    }

    ScratchFolder scratch;
};

} // namespace

TEST_F(SavedBitmapTest, HasThePixelsThatWereLoaded)
{
    for (const PictureFixture &fixture : PictureFixture::all()) {
        const QImage pixels = PictureFile::decode(fixture.bytes()).pixels;
        if (pixels.hasAlphaChannel())
            continue;
        PictureFile::saveBitmap(pixels, path("saved.bmp"));
        EXPECT_EQ(largestDifference(PictureFile::read(path("saved.bmp")).pixels, pixels), 0) << fixture.name;
        EXPECT_TRUE(Files::read(path("saved.bmp")).startsWith("BM")) << fixture.name;
    }
}

TEST_F(SavedBitmapTest, IsABitmapWhateverItsEnding)
{
    for (const char *name : {"a.gif", "a.dib", "a"}) {
        PictureFile::saveBitmap(sample("gif/plain.gif"), path(name));
        EXPECT_TRUE(Files::read(path(name)).startsWith("BM")) << name;
    }
}

TEST_F(SavedBitmapTest, IsWhiteWhereThePictureIsTransparent)
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(255, 0, 0, 128));
    image.setPixel(2, 0, qRgb(1, 2, 3));
    PictureFile::saveBitmap(image, path("a.bmp"));
    const QImage saved = PictureFile::read(path("a.bmp")).pixels;
    EXPECT_EQ(saved.pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(saved.pixel(1, 0), qRgb(255, 127, 127));
    EXPECT_EQ(saved.pixel(2, 0), qRgb(1, 2, 3));
}

/// A painter would end there.
TEST_F(SavedBitmapTest, MayBeWiderThan32767Pixels)
{
    QImage image(40000, 1, QImage::Format_ARGB32);
    image.fill(qRgba(0, 0, 0, 128));
    PictureFile::saveBitmap(image, path("a.bmp"));
    const QImage saved = PictureFile::read(path("a.bmp")).pixels;
    ASSERT_EQ(saved.size(), QSize(40000, 1));
    EXPECT_EQ(saved.pixel(39999, 0), qRgb(127, 127, 127));
}

TEST_F(SavedBitmapTest, TakesThePlaceOfThePictureItself)
{
    scratch.addFile("a.gif", PictureFixture::named("gif/plain.gif").bytes());
    ASSERT_EQ(::chmod(scratch.file("a.gif").constData(), 0640), 0);
    const LoadedPicture picture = PictureFile::read(path("a.gif"));
    PictureFile::saveBitmap(picture.pixels, path("a.gif"));
    EXPECT_EQ(largestDifference(PictureFile::read(path("a.gif")).pixels, picture.pixels), 0);
    EXPECT_EQ(files(), QStringList(QStringLiteral("a.gif")));
    struct stat state = {};
    ASSERT_EQ(::stat(scratch.file("a.gif").constData(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, mode_t(0640));
}

TEST_F(SavedBitmapTest, TakesThePlaceOfWhatALinkPointsTo)
{
    scratch.addFile("a.gif", PictureFixture::named("gif/plain.gif").bytes());
    scratch.addLink("link", "a.gif");
    PictureFile::saveBitmap(PictureFile::read(path("link")).pixels, path("link"));
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink());
    EXPECT_TRUE(Files::read(path("a.gif")).startsWith("BM"));
}

TEST_F(SavedBitmapTest, AFullDiskLeavesTheOldFile)
{
    const SmallDisk disk(64 * 1024);
    if (!disk.isMounted())
        GTEST_SKIP() << "this user may not mount a file system";
    const QString onDisk = Folder::join(disk.path(), QStringLiteral("a.bmp"));
    PictureFile::saveBitmap(sample("bmp/24.bmp"), onDisk);
    const QByteArray old = Files::read(onDisk);
    QImage large(400, 400, QImage::Format_RGB32);
    large.fill(Qt::red);
    EXPECT_EQ(errorNumberOf([&] { PictureFile::saveBitmap(large, onDisk); }), ErrorNumber::DiskFull);
    EXPECT_EQ(Files::read(onDisk), old);
    EXPECT_EQ(Folder::files(disk.path(), Folder::Hidden::Include), QStringList(QStringLiteral("a.bmp")));
}

TEST_F(SavedBitmapTest, WhatCannotBeWrittenIsAnError)
{
    const QImage image = sample("bmp/24.bmp");
    scratch.addFolder("folder");
    EXPECT_EQ(errorOf(image, "folder"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf(image, "missing/a.bmp"), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOf({}, "a.bmp"), ErrorNumber::InvalidPicture);
    scratch.addFile("guarded.bmp", "old");
    ASSERT_EQ(::chmod(scratch.file("guarded.bmp").constData(), 0400), 0);
    const AsUser user(scratch.path());
    EXPECT_EQ(errorOf(image, "guarded.bmp"), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Files::read(path("guarded.bmp")), QByteArray("old"));
    EXPECT_EQ(files(), QStringList(QStringLiteral("guarded.bmp")));
}

/// A bitmap file tells its own size in so many bits. The memory is never touched.
TEST_F(SavedBitmapTest, APictureThatNoBitmapCanHoldIsAnError)
{
    const QImage image(131072, 131072, QImage::Format_Mono);
    if (image.isNull())
        GTEST_SKIP() << "no memory";
    EXPECT_EQ(errorOf(image, "a.bmp"), ErrorNumber::Overflow);
    EXPECT_TRUE(files().isEmpty());
}
