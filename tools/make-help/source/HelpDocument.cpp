#include "HelpDocument.h"

#include "Files.h"
#include "HelpError.h"
#include "HelpSource.h"
#include "ParagraphFormat.h"
#include "RuntimeError.h"

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>

namespace {

using Kind = HelpBlock::Kind;

const QString textFont = QStringLiteral("Liberation Sans");
const QString codeFont = QStringLiteral("Liberation Mono");
constexpr double titleSize = 17; // points
constexpr double headingSize = 12.5;
constexpr double textSize = 10;
constexpr double codeSize = 9.5;
constexpr int listIndent = 360;    // twips
constexpr int lineSpacing = 276;   // 240ths of a line
constexpr int widestPicture = 540; // pixels, for which the help window has room when it opens

struct Spacing
{
    int before; ///< twips
    int after;
};

Spacing spacingOf(Kind kind)
{
    switch (kind) {
    case Kind::Title:
        return {0, 160};
    case Kind::Heading:
        return {200, 80};
    case Kind::Step:
    case Kind::Bullet:
        return {0, 80};
    case Kind::Paragraph:
    case Kind::Picture:
        break;
    }
    return {0, 120};
}

double sizeOf(Kind kind)
{
    switch (kind) {
    case Kind::Title:
        return titleSize;
    case Kind::Heading:
        return headingSize;
    default:
        return textSize;
    }
}

bool isItem(Kind kind)
{
    return kind == Kind::Step || kind == Kind::Bullet;
}

QTextBlockFormat paragraphFormat(Kind kind)
{
    QTextBlockFormat format;
    const auto [before, after] = spacingOf(kind);
    ParagraphFormat::setSpacing(format, before, after);
    if (kind != Kind::Picture)
        ParagraphFormat::setLineSpacing(format, lineSpacing, true);
    if (isItem(kind))
        ParagraphFormat::setIndents(format, listIndent, 0, -listIndent);
    return format;
}

QTextCharFormat characterFormat(Kind kind, const HelpSpan &span)
{
    QTextCharFormat format;
    const bool isCode = span.kind == HelpSpan::Kind::Code;
    format.setFontFamilies({isCode ? codeFont : textFont});
    format.setFontPointSize(isCode ? codeSize : sizeOf(kind));
    if (span.kind == HelpSpan::Kind::Bold || kind == Kind::Title || kind == Kind::Heading)
        format.setFontWeight(QFont::Bold);
    if (span.kind == HelpSpan::Kind::Link) {
        format.setAnchor(true);
        format.setAnchorHref(span.target);
    }
    return format;
}

/// Makes the paragraph at \a cursor an item of \a list, or of a new one where \a block starts it.
void addToList(QTextCursor &cursor, const HelpBlock &block, QTextList *&list)
{
    if (block.startsList) {
        QTextListFormat format;
        format.setStyle(block.kind == Kind::Step ? QTextListFormat::ListDecimal : QTextListFormat::ListDisc);
        format.setIndent(0); // the paragraphs indent
        list = cursor.createList(format);
    } else {
        list->add(cursor.block());
    }
    QTextBlockFormat format = cursor.blockFormat();
    ParagraphFormat::setIndents(format, listIndent, 0, -listIndent); // once more, as in a list
    cursor.setBlockFormat(format);
}

QByteArray pictureBytes(const QString &path, int line)
{
    try {
        return Files::read(path);
    } catch (const RuntimeError &error) {
        throw HelpError{line, path + QStringLiteral(": ") + error.description()};
    }
}

void insertPicture(QTextCursor &cursor, const HelpBlock &block, const QString &folder)
{
    const QString path = folder + u'/' + block.picture;
    const QByteArray bytes = pictureBytes(path, block.line);
    const QImage image = QImage::fromData(bytes, "PNG");
    if (image.isNull())
        throw HelpError{block.line, path + QStringLiteral(": no PNG file")};
    if (image.width() > widestPicture)
        throw HelpError{block.line, path + QStringLiteral(": wider than %1 pixels").arg(widestPicture)};
    cursor.document()->addResource(QTextDocument::ImageResource, QUrl(block.picture), bytes);
    QTextImageFormat format;
    format.setName(block.picture);
    format.setWidth(image.width());
    format.setHeight(image.height());
    cursor.insertImage(format);
}

} // namespace

void HelpDocument::fill(QTextDocument &document, const HelpSource &source, const QString &folder)
{
    QTextCursor cursor(&document);
    QTextList *steps = nullptr;
    QTextList *bullets = nullptr;
    for (const HelpBlock &block : source.blocks) {
        if (block.kind == Kind::Title)
            cursor.setBlockFormat(paragraphFormat(block.kind));
        else
            cursor.insertBlock(paragraphFormat(block.kind), {});
        if (isItem(block.kind))
            addToList(cursor, block, block.kind == Kind::Step ? steps : bullets);
        for (const HelpSpan &span : block.spans)
            cursor.insertText(span.text, characterFormat(block.kind, span));
        if (block.kind == Kind::Picture)
            insertPicture(cursor, block, folder);
    }
}
