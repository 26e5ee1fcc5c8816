#include "Pictures.h"

#include "DocumentPicture.h"
#include "Files.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "RuntimeError.h"
#include "Twips.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QImageReader>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <QUuid>

namespace {

QString freshName()
{
    return QStringLiteral("picture:") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QVariant resource(const QTextDocument &document, const QString &name)
{
    return document.resource(QTextDocument::ImageResource, QUrl(name));
}

void setFormat(QTextDocument &document, const QTextFragment &run, const QTextImageFormat &format)
{
    QTextCursor picture(&document);
    picture.setPosition(run.position());
    picture.setPosition(run.position() + run.length(), QTextCursor::KeepAnchor);
    picture.setCharFormat(format);
}

void rename(QTextDocument &document, const QTextFragment &run, const QString &name)
{
    QTextImageFormat format = run.charFormat().toImageFormat();
    format.setName(name);
    setFormat(document, run, format);
}

/// From the head of its file: a mouse that moves asks for it again and again.
QSize ownSize(const QTextDocument &document, const QTextImageFormat &format)
{
    QByteArray file = resource(document, format.name()).toByteArray();
    QBuffer buffer(&file);
    const QSize size = QImageReader(&buffer).size();
    return size.isValid() ? size : DocumentPicture::image(document, format).size();
}

/// In pixels. What came without a size, as pasted HTML may, shows in its own.
QSizeF shownSize(const QTextDocument &document, const QTextImageFormat &format)
{
    const QSizeF size(format.width(), format.height());
    return size.isEmpty() ? DocumentPicture::shownSize(format, ownSize(document, format)) : size;
}

QList<QTextFragment> pictureRuns(const QTextDocument &document)
{
    QList<QTextFragment> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isImageFormat())
                runs.append(it.fragment());
        }
    }
    return runs;
}

/// In document order from the end, as a change may unite a run with the one behind it.
QList<QTextFragment> pictureRunsFromEnd(const QTextDocument &document)
{
    QList<QTextFragment> runs = pictureRuns(document);
    std::reverse(runs.begin(), runs.end());
    return runs;
}

/// Empty where there is no picture. The kinds that every reader of HTML knows go as they came.
QString dataUrl(const QTextDocument &document, const QTextImageFormat &format)
{
    const QByteArray kind = format.property(RichTextProperty::PictureKind).toByteArray();
    const bool isJpeg = kind == "jpegblip";
    const bool isKept = isJpeg || kind == "pngblip";
    const QByteArray bytes = isKept ? format.property(RichTextProperty::PictureBytes).toByteArray()
                                    : DocumentPicture::asPng(DocumentPicture::image(document, format));
    if (bytes.isEmpty())
        return {};
    const QString type = isJpeg ? QStringLiteral("image/jpeg") : QStringLiteral("image/png");
    return QStringLiteral("data:%1;base64,%2").arg(type, QString::fromLatin1(bytes.toBase64()));
}

/// Pixels, as layouts count them. A file's size is that without any scale.
void setShownSize(QTextImageFormat &format, const QSizeF &size)
{
    format.setWidth(size.width());
    format.setHeight(size.height());
    format.clearProperty(RichTextProperty::PictureScaleX);
    format.clearProperty(RichTextProperty::PictureScaleY);
    format.setProperty(RichTextProperty::PictureWidth, ParagraphFormat::toTwips(size.width()));
    format.setProperty(RichTextProperty::PictureHeight, ParagraphFormat::toTwips(size.height()));
}

/// Empty when the file cannot be read.
QByteArray bytesOf(const QString &path)
{
    try {
        return Files::read(path);
    } catch (const RuntimeError &) {
        return {};
    }
}

struct KeptBytes
{
    QByteArray bytes;
    const char *kind; ///< as files name it
};

/// Keeps a picture in the form that files take, as its making takes long and would be due at each writing.
void keepBytes(QTextImageFormat &format, const KeptBytes &kept, const QSize &source)
{
    if (kept.bytes.isEmpty())
        return;
    format.setProperty(RichTextProperty::PictureBytes, kept.bytes);
    format.setProperty(RichTextProperty::PictureKind, QByteArray(kept.kind));
    format.setProperty(RichTextProperty::PictureSourceWidth, source.width());
    format.setProperty(RichTextProperty::PictureSourceHeight, source.height());
}

/// Pixels, as far as the format of a table says; otherwise an equal share of \a around.
double columnWidth(const QTextTable &table, int column, double around)
{
    const QTextLength length = table.format().columnWidthConstraints().value(column);
    return length.type() == QTextLength::VariableLength ? around / table.columns() : length.value(around);
}

/// What the text of the cell around \a place has of \a page, in pixels.
double cellWidth(const QTextTable &table, int place, double page)
{
    const auto *outer = qobject_cast<const QTextTable *>(table.parentFrame());
    const double around = outer ? cellWidth(*outer, table.firstPosition() - 1, page) : page;
    const QTextTableCell cell = table.cellAt(place);
    const QTextCharFormat format = cell.format();
    const auto padding = [&](int side) {
        return format.hasProperty(side) ? format.doubleProperty(side) : table.format().cellPadding();
    };
    double width = -table.format().border() - padding(QTextFormat::TableCellLeftPadding) -
                   padding(QTextFormat::TableCellRightPadding);
    for (int column = cell.column(); column < cell.column() + cell.columnSpan(); ++column)
        width += columnWidth(table, column, around);
    return width;
}

/// Pixels without enlargement, which changes a format's own. A first line that begins left of the others has
/// no more room than they have.
double indentsOf(const QTextBlockFormat &format, bool isFirstLine)
{
    const bool isShorter = isFirstLine && format.textIndent() > 0;
    const int twips = ParagraphFormat::leftIndent(format) + ParagraphFormat::rightIndent(format) +
                      (isShorter ? ParagraphFormat::firstLineIndent(format) : 0);
    return Twips::toPixels(twips, ParagraphFormat::layoutDpi());
}

void insertPicture(QTextCursor &cursor, const QImage &image, const KeptBytes &kept, double page)
{
    const QString name = freshName();
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl(name), image);
    QTextImageFormat format;
    format.setName(name);
    const QSizeF size = image.deviceIndependentSize();
    const double widest = Pictures::lineWidth(*cursor.document(), cursor.selectionStart(), page);
    setShownSize(format, size.width() > widest ? size * (widest / size.width()) : size);
    keepBytes(format, kept, image.size());
    cursor.insertImage(format);
}

} // namespace

void Pictures::insert(QTextCursor &cursor, const QImage &image, double page)
{
    insertPicture(cursor, image, {DocumentPicture::asPng(image), "pngblip"}, page);
}

void Pictures::insertFile(QTextCursor &cursor, const QString &path, double page)
{
    QByteArray bytes = bytesOf(path);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const bool isKept =
        reader.format() == "jpeg" && reader.transformation() == QImageIOHandler::TransformationNone;
    const QImage image = reader.read();
    if (image.isNull())
        return;
    if (isKept) // as PNG a photograph is many times as large
        insertPicture(cursor, image, {bytes, "jpegblip"}, page);
    else
        insert(cursor, image, page);
}

QSizeF Pictures::sizeAt(const QTextDocument &document, int position)
{
    if (position < 0 || position + 1 >= document.characterCount())
        return {};
    QTextCursor behind(document.findBlock(position));
    behind.setPosition(position + 1); // a position's format is that of the character before it
    const QTextCharFormat format = behind.charFormat();
    return format.isImageFormat() ? shownSize(document, format.toImageFormat()) : QSizeF();
}

double Pictures::lineWidth(const QTextDocument &document, int position, double page)
{
    constexpr double least = 1;
    const QTextCursor cursor(document.findBlock(position));
    const QTextTable *table = cursor.currentTable();
    const double indents = indentsOf(cursor.blockFormat(), position == cursor.position());
    return qMax(least, (table ? cellWidth(*table, position, page) : page) - indents);
}

void Pictures::resize(QTextDocument &document, int position, const QSizeF &size)
{
    QTextCursor picture(&document);
    picture.setPosition(position);
    picture.setPosition(position + 1, QTextCursor::KeepAnchor);
    QTextImageFormat format = picture.charFormat().toImageFormat();
    setShownSize(format, size);
    picture.setCharFormat(format);
}

void Pictures::move(QTextDocument &from, QTextDocument &to)
{
    for (const QTextFragment &run : pictureRuns(from)) {
        const QVariant picture = resource(from, run.charFormat().toImageFormat().name());
        if (!picture.isValid())
            continue;
        const QString name = freshName();
        to.addResource(QTextDocument::ImageResource, QUrl(name), picture);
        rename(from, run, name);
    }
}

QImage Pictures::selected(const QTextCursor &cursor)
{
    if (cursor.selectionEnd() - cursor.selectionStart() != 1)
        return {};
    QTextCursor behind = cursor;
    behind.setPosition(cursor.selectionEnd()); // a position's format is that of the character before it
    const QTextCharFormat format = behind.charFormat();
    if (!format.isImageFormat())
        return {};
    return DocumentPicture::image(*cursor.document(), format.toImageFormat());
}

void Pictures::nameByBytes(QTextDocument &document)
{
    for (const QTextFragment &run : pictureRunsFromEnd(document)) {
        const QString url = dataUrl(document, run.charFormat().toImageFormat());
        if (!url.isEmpty())
            rename(document, run, url);
    }
}

void Pictures::shrinkTo(const QSizeF &page, QTextDocument &document)
{
    for (const QTextFragment &run : pictureRunsFromEnd(document)) {
        QTextImageFormat format = run.charFormat().toImageFormat();
        const QSizeF size = shownSize(document, format);
        const double belowFoot = QFontMetricsF(format.font()).height(); // where the line's letters reach
        const QSizeF area(lineWidth(document, run.position(), page.width()), page.height() - belowFoot);
        if (size.boundedTo(area) == size)
            continue;
        const QSizeF fitting = size.scaled(area, Qt::KeepAspectRatio);
        format.setWidth(fitting.width());
        format.setHeight(fitting.height());
        setFormat(document, run, format);
    }
}
