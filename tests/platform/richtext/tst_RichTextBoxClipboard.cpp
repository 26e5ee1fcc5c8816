#include "Files.h"
#include "Pictures.h"
#include "RichTextFixture.h"
#include "RichTextProperties.h"
#include "ScratchFolder.h"

#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>

namespace {

/// The control's clipboard operations, which Qt keeps for the control itself.
class OpenBox : public RichTextBox
{
public:
    using RichTextBox::canInsertFromMimeData;
    using RichTextBox::createMimeDataFromSelection;
    using RichTextBox::insertFromMimeData;
};

class Clipboard : public ::testing::Test
{
protected:
    void select(int first, int end)
    {
        box.setSelStart(first);
        box.setSelLength(end - first);
    }
    std::unique_ptr<QMimeData> copy()
    {
        return std::unique_ptr<QMimeData>(box.createMimeDataFromSelection());
    }
    QImage picture()
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::red);
        return image;
    }

    OpenBox box;
    QMimeData data;
};

} // namespace

TEST_F(Clipboard, OffersRichTextHtmlAndPlainText)
{
    box.setText(QStringLiteral("one two"));
    select(4, 7);
    box.setSelBold(true);
    const auto copied = copy();
    EXPECT_TRUE(copied->hasFormat(QStringLiteral("text/rtf")));
    EXPECT_EQ(copied->data(QStringLiteral("text/rtf")), box.SelRTF());
    EXPECT_TRUE(copied->hasHtml());
    EXPECT_TRUE(copied->html().contains(QStringLiteral("two")));
    EXPECT_TRUE(copied->html().contains(QStringLiteral("font-weight")));
    EXPECT_EQ(copied->text(), QStringLiteral("two"));
    EXPECT_FALSE(copied->hasImage());
}

TEST_F(Clipboard, WhatIsCopiedComesBackWhole)
{
    box.setText(QStringLiteral("one two"));
    select(4, 7);
    box.setSelUnderline(true);
    const auto copied = copy();
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    EXPECT_TRUE(box.canInsertFromMimeData(copied.get()));
    box.insertFromMimeData(copied.get());
    EXPECT_EQ(box.Text(), QStringLiteral("atwob"));
    select(1, 4);
    EXPECT_EQ(box.SelUnderline(), true);
}

TEST_F(Clipboard, RichTextIsTakenBeforeTheRest)
{
    data.setText(QStringLiteral("plain"));
    data.setHtml(QStringLiteral("<i>html</i>"));
    data.setImageData(picture());
    data.setData(QStringLiteral("application/rtf"), "{\\rtf1\\ansi {\\b rich}}");
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text(), QStringLiteral("rich"));
    select(0, 4);
    EXPECT_EQ(box.SelBold(), true);
}

TEST_F(Clipboard, WhatOnlyClaimsToBeRichTextIsNotTaken)
{
    data.setText(QStringLiteral("plain"));
    data.setData(QStringLiteral("text/rtf"), "nonsense");
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text(), QStringLiteral("plain"));
}

TEST_F(Clipboard, HtmlIsTakenBeforePictureAndText)
{
    data.setText(QStringLiteral("plain"));
    data.setHtml(QStringLiteral("<i>html</i>"));
    data.setImageData(picture());
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text(), QStringLiteral("html"));
    select(0, 4);
    EXPECT_EQ(box.SelItalic(), true);
}

TEST_F(Clipboard, APictureIsTakenBeforeHtmlThatOnlyNamesOne)
{
    data.setHtml(QStringLiteral("<img src=\"https://example.org/a.png\">"));
    data.setImageData(picture());
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text().size(), 1);
    EXPECT_TRUE(box.TextRTF().contains("\\pngblip"));
}

TEST_F(Clipboard, APastedPictureIsOneStepAndIsKeptByRichText)
{
    data.setImageData(picture());
    EXPECT_TRUE(box.canInsertFromMimeData(&data));
    box.insertFromMimeData(&data);
    const QByteArray rich = box.TextRTF();
    EXPECT_TRUE(rich.contains("\\pngblip"));
    box.undo();
    EXPECT_EQ(box.Text(), QString());
    box.setTextRTF(rich);
    EXPECT_EQ(box.Text().size(), 1);
    EXPECT_EQ(box.TextRTF(), rich);
}

TEST_F(Clipboard, APastedPictureIsEncodedOnce)
{
    QImage image = picture();
    image.setDevicePixelRatio(2);
    data.setImageData(image);
    box.insertFromMimeData(&data);
    select(0, 1);
    const QTextImageFormat format = box.textCursor().charFormat().toImageFormat();
    const QByteArray bytes = format.property(RichTextProperty::PictureBytes).toByteArray();
    EXPECT_EQ(QImage::fromData(bytes).size(), QSize(20, 10));
    QTextDocument &document = *box.document();
    document.addResource(QTextDocument::ImageResource, QUrl(format.name()),
                         QImage(3, 3, QImage::Format_RGB32));
    const QByteArray size = "\\pngblip\\picw20\\pich10\\picwgoal150\\pichgoal75 "; // half the pixels
    EXPECT_TRUE(box.TextRTF().contains(size + bytes.toHex()));
}

TEST_F(Clipboard, ASelectedPictureIsOfferedAsPicture)
{
    data.setImageData(picture());
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    box.insertFromMimeData(&data);
    select(1, 2);
    const auto copied = copy();
    ASSERT_TRUE(copied->hasImage());
    EXPECT_EQ(copied->imageData().value<QImage>().size(), QSize(20, 10));
    select(0, 2);
    EXPECT_FALSE(copy()->hasImage());
    select(2, 3);
    EXPECT_FALSE(copy()->hasImage());
}

TEST_F(Clipboard, HtmlBringsThePicturesAlong)
{
    data.setImageData(picture());
    box.setText(QStringLiteral("ab"));
    box.setSelStart(1);
    box.insertFromMimeData(&data);
    select(0, 3);
    const QString html = copy()->html();
    const QRegularExpression named(QStringLiteral("<img src=\"data:image/png;base64,([^\"]*)\""));
    const QByteArray bytes = named.match(html).captured(1).toLatin1();
    EXPECT_EQ(QImage::fromData(QByteArray::fromBase64(bytes)).pixelColor(3, 3), QColor(Qt::red));

    QMimeData htmlAlone;
    htmlAlone.setHtml(html);
    box.setText({});
    box.insertFromMimeData(&htmlAlone);
    EXPECT_EQ(box.Text().size(), 3);
    const QByteArray size = "\\pngblip\\picw20\\pich10\\picwgoal300\\pichgoal150 ";
    EXPECT_TRUE(box.TextRTF().contains(size + QByteArray::fromBase64(bytes).toHex()));
    select(1, 2);
    EXPECT_EQ(copy()->imageData().value<QImage>().pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(Clipboard, HtmlBringsPhotographsAsTheyCame)
{
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    picture().save(&buffer, "JPG");
    box.setTextRTF("{\\rtf1 a{\\pict\\jpegblip\\picwgoal300\\pichgoal150 " + jpeg.toHex() + "}b}");
    select(0, 3);
    EXPECT_TRUE(copy()->html().contains(
        QStringLiteral("<img src=\"data:image/jpeg;base64,%1\"").arg(QString::fromLatin1(jpeg.toBase64()))));
}

TEST_F(Clipboard, PicturesOfTwoTextsStayApart)
{
    data.setImageData(picture());
    box.insertFromMimeData(&data);
    const QByteArray red = box.TextRTF();
    QImage blue = picture();
    blue.fill(Qt::blue);
    data.setImageData(blue);
    box.setText({});
    box.insertFromMimeData(&data);
    const QByteArray rich = box.TextRTF();
    box.setTextRTF(rich);
    box.setSelStart(1);
    box.setSelRTF(red);
    select(0, 1);
    EXPECT_EQ(copy()->imageData().value<QImage>().pixelColor(3, 3), QColor(Qt::blue));
    select(1, 2);
    EXPECT_EQ(copy()->imageData().value<QImage>().pixelColor(3, 3), QColor(Qt::red));
}

TEST_F(Clipboard, LockedTakesNothing)
{
    box.setText(QStringLiteral("kept"));
    box.setLocked(true);
    data.setText(QStringLiteral("x"));
    box.insertFromMimeData(&data);
    data.setImageData(picture());
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text(), QStringLiteral("kept"));
}

TEST_F(Clipboard, NothingOutsideIsOpened)
{
    EXPECT_TRUE(box.document()
                    ->resource(QTextDocument::ImageResource, QUrl(QStringLiteral("file:///dev/zero")))
                    .toByteArray()
                    .isEmpty());
    data.setHtml(QStringLiteral("a<img src=\"file:///dev/zero\">b"));
    box.insertFromMimeData(&data);
    box.grab();
    EXPECT_TRUE(box.Text().startsWith(u'a'));
}

TEST_F(Clipboard, AWidePictureIsShownAsWideAsItsLine)
{
    box.resize(400, 300);
    box.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
    data.setImageData(QImage(2000, 1000, QImage::Format_RGB32));
    box.insertFromMimeData(&data);
    const double line = box.document()->pageSize().width() - 2 * box.document()->documentMargin();
    EXPECT_EQ(Pictures::sizeAt(*box.document(), 0), QSizeF(line, line / 2));
}

TEST_F(Clipboard, PictureFilesComeInAsPicturesInOneStep)
{
    const ScratchFolder folder;
    picture().save(QString::fromUtf8(folder.file("a.png")));
    picture().save(QString::fromUtf8(folder.file("b.bmp")));
    data.setUrls({QUrl::fromLocalFile(QString::fromUtf8(folder.file("a.png"))),
                  QUrl::fromLocalFile(QString::fromUtf8(folder.file("b.bmp")))});
    EXPECT_TRUE(box.canInsertFromMimeData(&data));
    box.insertFromMimeData(&data);
    EXPECT_EQ(box.Text(), QString(2, QChar::ObjectReplacementCharacter));
    EXPECT_EQ(box.TextRTF().count("\\pngblip"), 2);
    box.undo();
    EXPECT_EQ(box.Text(), QString());
}

TEST_F(Clipboard, APhotographStaysAsItCame)
{
    const ScratchFolder folder;
    const QString path = QString::fromUtf8(folder.file("photo.jpg"));
    picture().save(path);
    data.setUrls({QUrl::fromLocalFile(path)});
    box.insertFromMimeData(&data);
    EXPECT_TRUE(box.TextRTF().contains("\\jpegblip"));
    EXPECT_TRUE(box.TextRTF().contains(Files::read(path).toHex()));
}

TEST_F(Clipboard, OtherFilesComeInAsTheirNames)
{
    const ScratchFolder folder;
    const QString path = QString::fromUtf8(folder.file("notes.pdf"));
    Files::write(path, "%PDF");
    data.setUrls({QUrl::fromLocalFile(path)});
    box.insertFromMimeData(&data);
    EXPECT_TRUE(box.Text().contains(QStringLiteral("notes.pdf")));
}

TEST_F(Clipboard, ADraggedDocumentIsLeftToTheWindowAround)
{
    const ScratchFolder folder;
    const QString path = QString::fromUtf8(folder.file("letter.RTF"));
    Files::write(path, "{\\rtf1}");
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent letter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &letter);
    EXPECT_FALSE(letter.isAccepted());
    QMimeData text;
    text.setText(QStringLiteral("words"));
    QDragEnterEvent words(QPoint(20, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box.viewport(), &words);
    EXPECT_TRUE(words.isAccepted());
}
