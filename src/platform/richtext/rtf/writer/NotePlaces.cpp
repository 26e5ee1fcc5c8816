#include "NotePlaces.h"

#include "RichTextProperties.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>

namespace {

int noteOf(const QTextBlock &block)
{
    return block.blockFormat().intProperty(RichTextProperty::Note);
}

int markOf(const QTextFragment &part)
{
    return part.charFormat().intProperty(RichTextProperty::NoteMark);
}

bool isNumber(const QTextFragment &part)
{
    const int count = part.charFormat().intProperty(RichTextProperty::NoteCount);
    return count != 0 && part.text() == QString::number(count);
}

/// Whether the text of the note \a number, whose first paragraph is \a first, begins with that number.
bool hasNumber(QTextBlock first, int number)
{
    while (first.length() == 1 && noteOf(first.next()) == number)
        first = first.next();
    const auto label = first.begin();
    return !label.atEnd() && markOf(label.fragment()) == number && isNumber(label.fragment());
}

bool isRaised(const QTextFragment &part)
{
    return part.charFormat().verticalAlignment() == QTextCharFormat::AlignSuperScript;
}

} // namespace

NotePlaces::NotePlaces(const QTextDocument &document)
{
    const QList<QTextFormat> formats = document.allFormats();
    const bool hasNotes = std::any_of(formats.begin(), formats.end(), [](const QTextFormat &format) {
        return format.hasProperty(RichTextProperty::Note);
    });
    if (!hasNotes)
        return;
    findTexts(document);
    findMarks(document);
    m_notes.removeIf([](const auto &entry) { return entry.value().mark < 0; });
    for (auto entry = m_notes.cbegin(); entry != m_notes.cend(); ++entry) {
        m_firsts.insert(entry->first, entry.key());
        m_marks.insert(entry->mark, entry.key());
    }
}

/// Paragraphs of a note that stand apart from its first ones have been copied or moved: they are text. A
/// table is of the note of its first paragraph, but begins none.
void NotePlaces::findTexts(const QTextDocument &document)
{
    int before = 0;
    const QTextFrame *page = document.rootFrame();
    for (auto it = page->begin(); it != page->end(); ++it) {
        const QTextFrame *table = it.currentFrame();
        const QTextBlock block = table ? document.findBlock(table->firstPosition()) : it.currentBlock();
        const int number = noteOf(block);
        const bool isNew = !m_notes.contains(number);
        before = number != 0 && (number == before || (isNew && !table)) ? number : 0;
        if (before == 0)
            continue;
        Note &note = m_notes[number];
        if (isNew) {
            note.first = block.position();
            note.isCounted = hasNumber(block, number);
            note.isAtEnd = block.blockFormat().boolProperty(RichTextProperty::NoteIsAtEnd);
        }
        note.last = table ? table->lastPosition() : block.position() + block.length() - 1;
    }
}

/// The first one counts: text that was copied has its marks too. In the text of a note the word for a number
/// means that note, so that one inside it is not counted.
void NotePlaces::findMarks(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment part = it.fragment();
            const auto note = m_notes.find(markOf(part));
            if (note == m_notes.end() || note->mark >= 0 || noteOf(block) == note.key())
                continue;
            note->isCounted = note->isCounted && isNumber(part) && noteOf(block) == 0;
            if (note->isCounted || isRaised(part))
                note->mark = part.position();
        }
    }
}
