#include "RichTextProperties.h"
#include "WrittenBody.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

QImage redImage()
{
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

/// The bytes of the only picture in \a body.
QByteArray bytesIn(const QByteArray &body)
{
    const qsizetype start = body.indexOf(' ', body.indexOf("{\\pict")) + 1;
    return QByteArray::fromHex(body.mid(start, body.indexOf('}', start) - start));
}

struct RtfWriterPictures : testing::Test
{
    QByteArray bodyWith(const QVariant &resource, double width = 0, double height = 0)
    {
        document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("picture:1")), resource);
        QTextImageFormat format;
        format.setName(QStringLiteral("picture:1"));
        if (width > 0)
            format.setWidth(width);
        if (height > 0)
            format.setHeight(height);
        QTextCursor cursor(&document);
        cursor.insertText(QStringLiteral("a"));
        cursor.insertImage(format);
        cursor.insertText(QStringLiteral("b"), QTextCharFormat());
        return bodyOf(document);
    }

    PlainDocument document;
};

} // namespace

TEST_F(RtfWriterPictures, LeaveAsTheyCame)
{
    QTextImageFormat format;
    format.setProperty(RichTextProperty::PictureBytes, QByteArray("\x01\x00\xfe", 3));
    format.setProperty(RichTextProperty::PictureKind, QByteArray("wmetafile8"));
    format.setProperty(RichTextProperty::PictureSourceWidth, 1001);
    format.setProperty(RichTextProperty::PictureSourceHeight, 502);
    format.setProperty(RichTextProperty::PictureWidth, 567);
    format.setProperty(RichTextProperty::PictureHeight, 284);
    format.setProperty(RichTextProperty::PictureScaleX, 50);
    format.setProperty(RichTextProperty::PictureScaleY, 75);
    QTextCursor(&document).insertImage(format);
    EXPECT_EQ(bodyOf(document), QByteArray("{\\pict\\wmetafile8\\picw1001\\pich502\\picwgoal567\\pichgoal284"
                                           "\\picscalex50\\picscaley75 0100fe}\\par\n"));
}

TEST_F(RtfWriterPictures, PastedAsImagesBecomePng)
{
    const QByteArray body = bodyWith(redImage());
    EXPECT_TRUE(body.startsWith("a{\\pict\\pngblip\\picw4\\pich2\\picwgoal60\\pichgoal30 89504e47"))
        << body.constData();
    EXPECT_TRUE(body.endsWith("}b\\par\n"));
    EXPECT_EQ(QImage::fromData(bytesIn(body)).convertToFormat(QImage::Format_RGB32), redImage());
}

TEST_F(RtfWriterPictures, PastedAsPixmapsBecomePng)
{
    EXPECT_EQ(QImage::fromData(bytesIn(bodyWith(QPixmap::fromImage(redImage())))).size(), QSize(4, 2));
}

TEST_F(RtfWriterPictures, PastedAsFilesKeepTheirBytes)
{
    const QByteArray jpeg = encoded(redImage(), "JPG");
    const QByteArray body = bodyWith(jpeg);
    EXPECT_TRUE(body.contains("\\jpegblip\\picw4\\pich2"));
    EXPECT_EQ(bytesIn(body), jpeg);
}

TEST_F(RtfWriterPictures, PastedAsOtherFilesBecomePng)
{
    const QByteArray body = bodyWith(encoded(redImage(), "BMP"));
    EXPECT_TRUE(body.contains("\\pngblip")) << body.constData();
    EXPECT_TRUE(bytesIn(body).startsWith("\x89PNG"));
}

TEST_F(RtfWriterPictures, AreAsLargeAsTheyAreShown)
{
    EXPECT_TRUE(bodyWith(redImage(), 40, 10).contains("\\picw4\\pich2\\picwgoal600\\pichgoal150 "));
}

TEST_F(RtfWriterPictures, KeepTheirShapeWhereOneSideIsGiven)
{
    EXPECT_TRUE(bodyWith(redImage(), 40).contains("\\picwgoal600\\pichgoal300 "));
}

TEST_F(RtfWriterPictures, KeepTheirShapeWhereTheOtherSideIsGiven)
{
    EXPECT_TRUE(bodyWith(redImage(), 0, 20).contains("\\picwgoal600\\pichgoal300 "));
}

TEST_F(RtfWriterPictures, ThatAreMissingWriteNothing)
{
    QTextImageFormat format;
    format.setName(QStringLiteral("picture:none"));
    QTextCursor cursor(&document);
    cursor.insertText(QStringLiteral("a"));
    cursor.insertImage(format);
    cursor.insertText(QStringLiteral("b"), QTextCharFormat());
    EXPECT_EQ(bodyOf(document), QByteArray("ab\\par\n"));
}

TEST_F(RtfWriterPictures, ThatAreDamagedWriteNothing)
{
    EXPECT_EQ(bodyWith(QByteArray("no picture")), QByteArray("ab\\par\n"));
}
