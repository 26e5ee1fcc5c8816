#include "ParagraphFormat.h"
#include "ReadDocument.h"
#include "RichTextProperties.h"

#include <QBuffer>
#include <QImage>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

QByteArray fileOf(const char *kind)
{
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, kind));
    return bytes;
}

QTextImageFormat pictureOf(const ReadDocument &read)
{
    return read.formatOf(QString(QChar::ObjectReplacementCharacter)).toImageFormat();
}

QVariant resourceOf(ReadDocument &read)
{
    return read.document().resource(QTextDocument::ImageResource, QUrl(pictureOf(read).name()));
}

TEST(RtfReaderPictures, PngAsItCame)
{
    const QByteArray file = fileOf("PNG");
    ReadDocument read(framed("a{\\pict\\pngblip\\picw79\\pich53\\picwgoal1440\\pichgoal720\\picscalex50 \n" +
                             file.toHex() + "}b"));
    EXPECT_EQ(read.text(), "a\uFFFCb");
    const QTextImageFormat format = pictureOf(read);
    EXPECT_EQ(format.property(RichTextProperty::PictureBytes).toByteArray(), file);
    EXPECT_EQ(format.property(RichTextProperty::PictureKind).toByteArray(), "pngblip");
    EXPECT_EQ(format.intProperty(RichTextProperty::PictureSourceWidth), 79);
    EXPECT_EQ(format.intProperty(RichTextProperty::PictureWidth), 1440);
    EXPECT_EQ(format.intProperty(RichTextProperty::PictureScaleX), 50);
    EXPECT_EQ(format.width(), ParagraphFormat::layoutDpi() / 2);
    EXPECT_EQ(format.height(), ParagraphFormat::layoutDpi() / 2);
    EXPECT_EQ(resourceOf(read).toByteArray(), file);
}

TEST(RtfReaderPictures, BinaryJpeg)
{
    const QByteArray file = fileOf("JPG");
    const QByteArray length = QByteArray::number(file.size());
    ReadDocument read(framed("{\\pict\\jpegblip\\bin" + length + " " + file + "}b"));
    EXPECT_EQ(read.text(), "\uFFFCb");
    EXPECT_EQ(resourceOf(read).toByteArray(), file);
}

TEST(RtfReaderPictures, BitmapGetsTheHeaderOfAFile)
{
    constexpr int fileHeader = 14;
    const QByteArray bitmap = fileOf("BMP").mid(fileHeader);
    ReadDocument read(framed("{\\pict\\dibitmap0\\picw3\\pich2 " + bitmap.toHex() + "}"));
    EXPECT_EQ(pictureOf(read).property(RichTextProperty::PictureBytes).toByteArray(), bitmap);
    const QImage image = QImage::fromData(resourceOf(read).toByteArray());
    ASSERT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::red));
}

TEST(RtfReaderPictures, DrawingsKeepTheirPlace)
{
    for (const char *kind : {"wmetafile8", "emfblip", "macpict", "wbitmap0"}) {
        ReadDocument read(framed(QByteArray("{\\pict\\") + kind + "\\picwgoal1440\\pichgoal1440 0102}"));
        EXPECT_EQ(read.text(), "\uFFFC");
        EXPECT_EQ(pictureOf(read).property(RichTextProperty::PictureBytes).toByteArray(), QByteArray("\1\2"));
        EXPECT_EQ(pictureOf(read).property(RichTextProperty::PictureKind).toByteArray(), kind);
        EXPECT_EQ(pictureOf(read).width(), ParagraphFormat::layoutDpi());
        EXPECT_FALSE(resourceOf(read).value<QImage>().isNull());
    }
}

TEST(RtfReaderPictures, OneOfTwoForms)
{
    const QByteArray hex = fileOf("PNG").toHex();
    EXPECT_EQ(
        textOf(framed("{\\*\\shppict{\\pict\\pngblip " + hex + "}}{\\nonshppict{\\pict\\wmetafile8 00}}b")),
        "\uFFFCb");
    EXPECT_EQ(textOf(framed("{\\*\\shppict{\\pict\\pngblip}}{\\nonshppict{\\pict\\wmetafile8 00}}b")),
              "\uFFFCb");
}

TEST(RtfReaderPictures, OfShapes)
{
    const QByteArray hex = fileOf("PNG").toHex();
    EXPECT_EQ(textOf(framed("{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv{\\pict\\pngblip " + hex +
                            "}}}"
                            "{\\sp{\\sn x}{\\sv{\\pict\\pngblip " +
                            hex + "}}}}{\\shprslt x}}b")),
              "\uFFFCb");
}

TEST(RtfReaderPictures, NothingIsNoPicture)
{
    EXPECT_EQ(textOf(framed("a{\\pict\\pngblip\\picw5}{\\v{\\pict\\pngblip 00}}b")), "ab");
}

} // namespace
