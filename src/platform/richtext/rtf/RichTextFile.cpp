#include "RichTextFile.h"

#include "Files.h"
#include "FrameSign.h"
#include "RtfReader.h"
#include "RtfWriter.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {

void setPlainText(QTextDocument &document, const QString &text)
{
    const bool undoes = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.setPlainText(text);
    document.setUndoRedoEnabled(undoes);
    document.setModified(false);
}

QString withLineFeeds(QString text)
{
    for (QChar &c : text) {
        switch (c.unicode()) {
        case QChar::ParagraphSeparator:
        case QChar::LineSeparator:
        case FrameSign::begin:
        case FrameSign::end:
            c = u'\n';
            break;
        default:
            break;
        }
    }
    return text;
}

} // namespace

bool RichTextFile::isDocumentName(const QString &path)
{
    return path.endsWith(QLatin1String(".rtf"), Qt::CaseInsensitive) ||
           path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive);
}

RichTextFile::Loaded RichTextFile::load(const QString &path, QTextDocument &document)
{
    const QByteArray bytes = Files::read(path);
    if (RtfReader::recognises(bytes)) {
        RtfReader::read(bytes, document, path.section(u'/', -1));
        return {};
    }
    setPlainText(document, PlainText::decode(bytes));
    return {Format::Text, PlainText::lineEndOf(bytes)};
}

void RichTextFile::save(const QString &path, const QTextDocument &document, Format format,
                        PlainText::LineEnd lineEnd)
{
    Files::write(path, format == Format::Rtf ? RtfWriter::write(document)
                                             : PlainText::encode(text(document), lineEnd));
}

QString RichTextFile::text(const QTextDocument &document)
{
    return withLineFeeds(document.toRawText());
}

QString RichTextFile::text(const QTextCursor &selection)
{
    if (!selection.hasComplexSelection())
        return withLineFeeds(selection.selectedText());
    // Cells of a table give their texts one by one, and no cursor has the stretch across them.
    const int first = selection.selectionStart();
    return text(*selection.document()).mid(first, selection.selectionEnd() - first);
}
