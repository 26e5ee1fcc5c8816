#include "ParagraphEdits.h"

#include "ListMark.h"
#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "SelectionRanges.h"

#include <QTextDocument>
#include <QTextList>
#include <functional>

namespace {

constexpr int markWidth = 240; // twips, room for the mark itself
constexpr int notInList = -1;

/// Whenever an item is added or removed Qt visits all items of its list. So lists are kept short; no user
/// sees where one list of bullets ends and the next begins.
constexpr int mostItems = 200;

/// Paragraphs in a row that all have the same format, in one cell or outside tables.
struct Stretch
{
    int first = 0;
    int last = 0;
    int count = 0;
    int format = 0; // its index
};

using Change = std::function<void(QTextBlockFormat &, const Stretch &)>;
using Choice = std::function<bool(const QTextBlock &)>;

int firstLineEdge(const QTextBlockFormat &format)
{
    return ParagraphFormat::leftIndent(format) + ParagraphFormat::firstLineIndent(format);
}

/// False for the first of a cell and the first behind a table, though positions go on there.
bool followsParagraph(const QTextDocument &document, const QTextBlock &block)
{
    return document.characterAt(block.position() - 1) == QChar::ParagraphSeparator;
}

QList<Stretch> stretches(const QTextCursor &selection, const Choice &choice)
{
    QList<Stretch> found;
    int next = -1;
    const QTextDocument &document = *selection.document();
    SelectionRanges::forEachParagraph(selection, [&](const QTextBlock &block) {
        if (choice(block)) {
            const int format = block.blockFormatIndex();
            const bool goesOn = next == block.position() && followsParagraph(document, block);
            if (!goesOn || found.constLast().format != format || found.constLast().count == mostItems)
                found.append({block.position(), 0, 0, format});
            found.last().last = block.position();
            ++found.last().count;
            next = block.position() + block.length();
        }
        return true;
    });
    return found;
}

/// One format change for each stretch of like paragraphs, as a change for each of many is slow.
void apply(const QTextCursor &selection, const Choice &choice, const Change &change)
{
    QTextCursor edit(selection.document());
    edit.beginEditBlock();
    for (const Stretch &stretch : stretches(selection, choice)) {
        edit.setPosition(stretch.first);
        QTextBlockFormat format = edit.blockFormat();
        change(format, stretch);
        edit.setPosition(stretch.last, QTextCursor::KeepAnchor);
        edit.setBlockFormat(format);
    }
    edit.endEditBlock();
}

bool all(const QTextBlock &)
{
    return true;
}

bool isNotNumbered(const QTextBlock &block)
{
    return !block.textList() || !ListMark::isNumbered(block.textList()->format());
}

/// The list of \a block if another paragraph may join it and then looks as one of our own bullets.
const QTextList *plainBullets(const QTextBlock &block)
{
    const QTextList *list = block.isValid() ? block.textList() : nullptr;
    if (!list || list->count() >= mostItems)
        return nullptr;
    const QTextListFormat format = list->format();
    const bool isNested = format.indent() != 0 || format.intProperty(RichTextProperty::ListLevel) != 0;
    return format.style() == QTextListFormat::ListDisc && !isNested ? list : nullptr;
}

bool isBulletFormat(const QTextDocument &document, const QTextBlockFormat &format)
{
    const auto *list = qobject_cast<const QTextList *>(document.object(format.objectIndex()));
    return list && ListMark::isBulleted(list->format());
}

/// The list that \a item joins: that of the paragraph before it, or of the one at \a behind, else a new one.
int listFor(const QTextBlock &item, const QTextBlock &behind)
{
    if (const QTextList *list = plainBullets(item.previous()))
        return list->objectIndex();
    if (const QTextList *list = plainBullets(behind))
        return list->objectIndex();

    QTextListFormat format;
    format.setStyle(QTextListFormat::ListDisc);
    format.setIndent(0); // the paragraphs indent
    return QTextCursor(item).createList(format)->objectIndex();
}

void outdent(QTextBlockFormat &format, const Stretch &)
{
    const int edge = firstLineEdge(format);
    format.setObjectIndex(notInList);
    ParagraphFormat::setIndents(format, edge, ParagraphFormat::rightIndent(format), 0);
}

} // namespace

bool ParagraphEdits::isBulleted(const QTextBlock &block)
{
    const QTextList *list = block.textList();
    return list && ListMark::isBulleted(list->format());
}

void ParagraphEdits::setIndent(const QTextCursor &selection, int indent)
{
    apply(selection, all, [indent](QTextBlockFormat &format, const Stretch &) {
        const int firstLine = ParagraphFormat::firstLineIndent(format);
        ParagraphFormat::setIndents(format, indent - firstLine, ParagraphFormat::rightIndent(format),
                                    firstLine);
    });
}

void ParagraphEdits::setRightIndent(const QTextCursor &selection, int indent)
{
    apply(selection, all, [indent](QTextBlockFormat &format, const Stretch &) {
        ParagraphFormat::setIndents(format, ParagraphFormat::leftIndent(format), indent,
                                    ParagraphFormat::firstLineIndent(format));
    });
}

void ParagraphEdits::addBullets(const QTextCursor &selection, int distance, Numbered numbered)
{
    const QTextDocument &document = *selection.document();
    const int hanging = distance + markWidth;
    const Choice choice = numbered == Numbered::Stay ? isNotNumbered : all;
    apply(selection, choice, [&](QTextBlockFormat &format, const Stretch &stretch) {
        if (!isBulletFormat(document, format)) {
            const QTextBlock behind = document.findBlock(stretch.last).next();
            format.setObjectIndex(listFor(document.findBlock(stretch.first), behind));
        }
        ParagraphFormat::setIndents(format, firstLineEdge(format) + hanging,
                                    ParagraphFormat::rightIndent(format), -hanging);
    });
}

void ParagraphEdits::removeBullets(const QTextCursor &selection)
{
    apply(selection, isBulleted, outdent);
}

void ParagraphEdits::leaveList(const QTextCursor &selection)
{
    apply(
        selection, [](const QTextBlock &block) { return block.textList() != nullptr; }, outdent);
}
