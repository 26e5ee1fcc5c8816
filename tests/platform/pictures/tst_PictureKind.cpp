#include "PictureFixture.h"
#include "PictureKind.h"
#include "TargaFile.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace {

QByteArray written(const char *format)
{
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return bytes;
}

} // namespace

TEST(PictureKind, FollowsFromTheContent)
{
    const struct
    {
        const char *folder;
        PictureKind kind;
    } kinds[] = {
        {"gif/", PictureKind::Gif},    {"jpeg/", PictureKind::Jpeg},
        {"bmp/", PictureKind::Bitmap}, {"ico/", PictureKind::Icon},
        {"cur/", PictureKind::Cursor}, {"dib/", PictureKind::HeaderlessBitmap},
        {"tga/", PictureKind::Targa},  {"wmf/", PictureKind::Metafile},
    };
    for (const auto &[folder, kind] : kinds) {
        const std::vector<PictureFixture> fixtures = PictureFixture::some(folder);
        EXPECT_FALSE(fixtures.empty()) << folder;
        for (const PictureFixture &fixture : fixtures)
            EXPECT_EQ(pictureKindOf(fixture.bytes()), kind) << fixture.name;
    }
}

TEST(PictureKind, KindsThatOtherReadersOfQtKnowAreNone)
{
    for (const char *format : {"png", "ppm", "pgm", "pbm", "xbm", "xpm"})
        EXPECT_EQ(pictureKindOf(written(format)), PictureKind::None) << format;
    EXPECT_EQ(pictureKindOf("<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>"),
              PictureKind::None);
    EXPECT_EQ(pictureKindOf(QByteArray("II*\0\x08\0\0\0", 8)), PictureKind::None);
    EXPECT_EQ(pictureKindOf(QByteArray("\0\0\0\x18"
                                       "ftypavif",
                                       12)),
              PictureKind::None);
}

/// Its beginning is that of a list of cursors, but for the count, and its first pixel could be a place in the
/// file.
TEST(PictureKind, ATargaFileIsNoListOfCursors)
{
    const TargaFile file{.width = 8, .pixels = QByteArray("\x10\0\0\0", 4).repeated(8)};
    EXPECT_EQ(pictureKindOf(file.bytes()), PictureKind::Targa);
}

TEST(PictureKind, AnEmptyFileAndATextAreNone)
{
    EXPECT_EQ(pictureKindOf({}), PictureKind::None);
    EXPECT_EQ(pictureKindOf("Dear all, this is a letter and no picture."), PictureKind::None);
}
