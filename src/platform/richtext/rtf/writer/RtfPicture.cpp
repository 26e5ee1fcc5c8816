#include "RtfPicture.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfWords.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QTextDocument>
#include <QUrl>

namespace {

struct Picture
{
    QByteArray bytes;
    QByteArray kind;
    QSize source; ///< in the kind's own unit
    QSize goal;   ///< twips
    QSize scale;  ///< percent
};

Picture asItCame(const QTextImageFormat &format)
{
    const auto size = [&](int width, int height) {
        return QSize(format.intProperty(width), format.intProperty(height));
    };
    return {format.property(RichTextProperty::PictureBytes).toByteArray(),
            format.property(RichTextProperty::PictureKind).toByteArray(),
            size(RichTextProperty::PictureSourceWidth, RichTextProperty::PictureSourceHeight),
            size(RichTextProperty::PictureWidth, RichTextProperty::PictureHeight),
            size(RichTextProperty::PictureScaleX, RichTextProperty::PictureScaleY)};
}

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

/// What the format asks for; a side that it leaves open follows the other.
QSizeF shownSize(const QTextImageFormat &format, const QSize &pixels)
{
    QSizeF size = pixels;
    if (format.width() > 0 && format.height() > 0)
        size = QSizeF(format.width(), format.height());
    else if (format.width() > 0)
        size = QSizeF(format.width(), format.width() * pixels.height() / pixels.width());
    else if (format.height() > 0)
        size = QSizeF(format.height() * pixels.width() / pixels.height(), format.height());
    return size;
}

Picture ofDocument(const QTextDocument &document, const QTextImageFormat &format)
{
    const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(format.name()));
    Picture picture;
    QImage image;
    if (resource.typeId() == QMetaType::QByteArray) {
        picture.bytes = resource.toByteArray();
        image = QImage::fromData(picture.bytes);
    } else if (resource.typeId() == QMetaType::QPixmap) {
        image = resource.value<QPixmap>().toImage();
    } else {
        image = resource.value<QImage>();
    }
    if (image.isNull())
        return {};

    picture.kind = picture.bytes.startsWith("\xFF\xD8") ? "jpegblip" : "pngblip";
    if (picture.kind == "pngblip" && !picture.bytes.startsWith("\x89PNG"))
        picture.bytes = asPng(image);
    picture.source = image.size();
    const QSizeF shown = shownSize(format, image.size());
    picture.goal = QSize(ParagraphFormat::toTwips(shown.width()), ParagraphFormat::toTwips(shown.height()));
    return picture;
}

void appendPositive(QByteArray &out, const char *word, int number)
{
    if (number > 0)
        RtfWords::appendLength(out, word, number);
}

} // namespace

QByteArray RtfPicture::group(const QTextDocument &document, const QTextImageFormat &format)
{
    const Picture picture =
        format.hasProperty(RichTextProperty::PictureBytes) ? asItCame(format) : ofDocument(document, format);
    if (picture.bytes.isEmpty())
        return {};
    QByteArray out = "{\\pict\\" + picture.kind;
    appendPositive(out, "picw", picture.source.width());
    appendPositive(out, "pich", picture.source.height());
    appendPositive(out, "picwgoal", picture.goal.width());
    appendPositive(out, "pichgoal", picture.goal.height());
    appendPositive(out, "picscalex", picture.scale.width());
    appendPositive(out, "picscaley", picture.scale.height());
    out.append(' ').append(picture.bytes.toHex());
    return out.append('}');
}
