#include "TextReplacement.h"

#include <QTextCursor>
#include <private/qtextdocument_p.h>

namespace {

QTextCharFormat firstFormat(const QTextCursor &selection)
{
    QTextCursor first(selection.document());
    first.setPosition(selection.selectionStart());
    if (first.atBlockEnd())
        return first.blockCharFormat();
    first.setPosition(first.position() + 1); // a caret has the format of the character before it
    QTextCharFormat format = first.charFormat();
    format.clearProperty(QTextFormat::ObjectType); // text in place of a picture is none
    return format;
}

/// Neither a picture nor the end of a line.
bool isText(const QTextDocumentPrivate &document, const QTextFragmentData &run)
{
    const QChar first = document.buffer().at(run.stringPosition);
    return first.category() != QChar::Separator_Paragraph &&
           document.formatCollection()->format(run.format).objectType() == QTextFormat::NoObject;
}

/// Qt keeps each run, a stretch of one format within a paragraph, as a node of a tree, which it would split
/// and join with each replacement. So a run is put in anew, as a whole, with all that is replaced in it.
///
/// Returns how many of the replacements from \a index on have been made so, 0 where it is not for runs.
int replaceInRun(QTextDocumentPrivate &document, const QList<int> &positions, int index, int length,
                 const QString &text)
{
    constexpr int longest = 1000; // characters; to put in more would cost more than splits
    const auto run = document.find(positions.at(index));
    const int start = run.position();
    const auto size = int(run->size_array[0]);
    const int format = run->format;
    if (size > longest || !isText(document, *run.value()))
        return 0;
    QString changed = document.buffer().mid(run->stringPosition, size);
    int next = index;
    for (; next < positions.size() && changed.size() <= longest; ++next) {
        const int place = positions.at(next) - start;
        if (place < 0 || place + length > changed.size())
            break;
        changed.replace(place, length, text);
    }
    if (next == index)
        return 0;
    document.remove(start, size);
    document.insert(start, changed, format);
    return next - index;
}

} // namespace

void TextReplacement::replace(QTextCursor &selection, const QString &text)
{
    const QTextCharFormat format = firstFormat(selection);
    selection.beginEditBlock();
    selection.removeSelectedText();
    selection.insertText(text, format);
    selection.endEditBlock();
}

void TextReplacement::replaceEach(QTextCursor &cursor, const QList<int> &positions, int length,
                                  const QString &text)
{
    auto &document = *QTextDocumentPrivate::get(cursor.document());
    const bool isForRuns = !text.contains(u'\n');
    for (int i = 0; i < positions.size();) {
        const int done = isForRuns ? replaceInRun(document, positions, i, length, text) : 0;
        if (done == 0) {
            cursor.setPosition(positions.at(i));
            cursor.setPosition(positions.at(i) + length, QTextCursor::KeepAnchor);
            replace(cursor, text);
        }
        i += qMax(done, 1);
    }
}
