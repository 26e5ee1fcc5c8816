#include "RtfPicture.h"

#include "DocumentPicture.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RtfWords.h"

#include <QImage>
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

Picture ofDocument(const QTextDocument &document, const QTextImageFormat &format)
{
    const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(format.name()));
    const QImage image = DocumentPicture::image(document, format);
    if (image.isNull())
        return {};

    Picture picture;
    if (resource.typeId() == QMetaType::QByteArray)
        picture.bytes = resource.toByteArray();
    picture.kind = picture.bytes.startsWith("\xFF\xD8") ? "jpegblip" : "pngblip";
    if (picture.kind == "pngblip" && !picture.bytes.startsWith("\x89PNG"))
        picture.bytes = DocumentPicture::asPng(image);
    picture.source = image.size();
    const QSizeF shown = DocumentPicture::shownSize(format, image.size());
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
