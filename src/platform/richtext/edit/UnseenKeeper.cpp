#include "UnseenKeeper.h"

#include "EventGate.h"
#include "FrameSign.h"

#include <QKeyEvent>
#include <QMap>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <utility>

namespace {

/// A run of characters in one format, or the end of a paragraph.
struct Stretch
{
    int begin = 0;
    int end = 0;
    QTextCharFormat format;
};

int endOf(const QTextBlock &block)
{
    return block.position() + block.length() - 1;
}

QList<Stretch> stretchesOf(const QTextBlock &block)
{
    QList<Stretch> stretches;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment run = it.fragment();
        stretches.append({run.position(), run.position() + run.length(), run.charFormat()});
    }
    stretches.append({endOf(block), endOf(block) + 1, block.charFormat()});
    return stretches;
}

/// The one with the character at \a position.
Stretch stretchAt(const QTextDocument &document, int position)
{
    const QList<Stretch> stretches = stretchesOf(document.findBlock(position));
    return *std::find_if(stretches.cbegin(), stretches.cend(),
                         [=](const Stretch &stretch) { return stretch.end > position; });
}

bool has(const Stretch &stretch, const std::shared_ptr<const Unseen::Piece> &piece)
{
    return Unseen::isIn(stretch.format) && Unseen::of(stretch.format).contains(piece);
}

/// Looks at many positions of one paragraph after another.
class StretchesOfBlock
{
public:
    explicit StretchesOfBlock(const QTextDocument &document)
        : m_document(document)
    {}
    const Stretch &at(int position)
    {
        if (m_stretches.isEmpty() || position < m_stretches.first().begin ||
            position >= m_stretches.last().end)
            m_stretches = stretchesOf(m_document.findBlock(position));
        return *std::upper_bound(m_stretches.cbegin(), m_stretches.cend(), position,
                                 [](int place, const Stretch &stretch) { return place < stretch.end; });
    }

private:
    const QTextDocument &m_document;
    QList<Stretch> m_stretches;
};

/// Where each piece of the runs that are between \a from and \a end begins.
QHash<const Unseen::Piece *, int> piecesOfRuns(const QTextDocument &document, int from, int end)
{
    QHash<const Unseen::Piece *, int> places;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            if (run.position() >= end || run.position() + run.length() <= from)
                continue;
            for (const auto &piece : Unseen::of(run.charFormat())) {
                if (!places.contains(piece.get()))
                    places.insert(piece.get(), run.position());
            }
        }
    }
    return places;
}

void setPieces(QTextDocument &document, const Stretch &stretch, const Unseen::Pieces &pieces)
{
    QTextCharFormat added;
    Unseen::set(added, pieces);
    QTextCursor edit(&document);
    edit.setPosition(stretch.begin);
    if (edit.atBlockEnd()) {
        edit.mergeBlockCharFormat(added);
    } else {
        edit.setPosition(stretch.end, QTextCursor::KeepAnchor);
        edit.mergeCharFormat(added);
    }
}

/// What tells the two ends of what reaches over text from each other, and them from all others.
struct End
{
    QByteArray name; ///< null for what has no ends
    bool isFirst = false;

    bool operator==(const End &) const = default;
};

size_t qHash(const End &end, size_t seed = 0)
{
    return qHashMulti(seed, end.name, end.isFirst);
}

End endOf(const Unseen::Piece &piece)
{
    static const QByteArray kinds[] = {"{\\*\\bkmk", "{\\*\\atrf"};
    for (const QByteArray &kind : kinds) {
        if (!piece.before.startsWith(kind))
            continue;
        const QByteArray words = piece.before.mid(kind.size());
        return {kind + words.mid(words.indexOf(' ')), words.startsWith("start")};
    }
    return {};
}

/// The same for equal ones.
size_t hashOf(const Unseen::Piece &piece)
{
    return qHashMulti(0, piece.before, piece.text.isEmpty() ? QString() : piece.text.first().text);
}

/// Whether \a piece is one end of what has its other end not in \a ends.
bool isEndAlone(const Unseen::Piece &piece, const QSet<End> &ends)
{
    const End end = endOf(piece);
    return !end.name.isNull() && !ends.contains({end.name, !end.isFirst});
}

/// As Qt deletes: backwards a character of a cluster, and not all of it.
void selectDeleted(QTextCursor &caret, bool isBackspace)
{
    const int behind = caret.position();
    const auto at = [&](int position) { return caret.document()->characterAt(position); };
    const bool isPair = behind > 1 && at(behind - 1).isLowSurrogate() && at(behind - 2).isHighSurrogate();
    if (isBackspace)
        caret.setPosition(behind - (isPair ? 2 : 1), QTextCursor::KeepAnchor);
    else
        caret.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
}

} // namespace

bool UnseenKeeper::Change::isBetween(const Place &place) const
{
    return isDeletion && place.position > from && place.position < end;
}

/// What is found elsewhere is not lost; each one that is found may be an equal one read again. Of a paragraph
/// that was split, the first half's end has but a copy.
void UnseenKeeper::Change::forgetMoved(const QList<Place> &found, bool isSplit)
{
    if (lost.isEmpty())
        return;
    QMultiHash<size_t, Place> here; // by what the pieces say
    for (const Place &place : found)
        here.insert(hashOf(*place.piece), place);
    const auto forget = [&](auto isSame) {
        lost.removeIf([&](const Place &was) {
            const auto [first, behind] = here.equal_range(hashOf(*was.piece));
            const auto moved = std::find_if(first, behind, [&](const Place &place) {
                const bool isCopy = isSplit && was.cursor.atBlockEnd() && place.cursor.atBlockEnd();
                return !isCopy && isSame(place.piece, was.piece);
            });
            if (moved == behind)
                return false;
            here.erase(moved);
            return true;
        });
    };
    forget([](const Piece &one, const Piece &other) { return one == other; });
    forget([](const Piece &one, const Piece &other) { return *one == *other; });
}

void UnseenKeeper::attach(QTextDocument &document)
{
    m_document = &document;
    m_places.clear();
    m_known.clear();
    m_latest = {};
    m_blockCount = document.blockCount();
    m_firstEnds = {{0, Unseen::of(document.firstBlock().charFormat())}};
    m_undoSteps = 0;
    m_hasNewStep = m_couldRedo = false;
    const QList<QTextFormat> formats = document.allFormats();
    if (std::any_of(formats.cbegin(), formats.cend(), Unseen::isIn))
        m_places = find(0, document.characterCount());
    on(&document, &QTextDocument::undoCommandAdded, this, [this] { m_hasNewStep = true; });
    on(&document, &QTextDocument::contentsChange, this, &UnseenKeeper::noteChange);
    on(&document, &QTextDocument::contentsChanged, this, &UnseenKeeper::afterEdit);
}

bool UnseenKeeper::beforeKey(const QKeyEvent &key, QTextCursor &caret) const
{
    const bool isDelete = key.matches(QKeySequence::Delete) && !caret.atEnd();
    const bool isBackspace = key.key() == Qt::Key_Backspace &&
                             !(key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) &&
                             !caret.atStart();
    if (m_places.isEmpty() || caret.hasSelection() || (!isDelete && !isBackspace))
        return false;
    if (isBackspace && caret.atBlockStart() && (caret.currentList() || caret.blockFormat().indent() > 0))
        return false; // which ends that, and deletes nothing
    const char16_t sign = m_document->characterAt(caret.position() - (isBackspace ? 1 : 0)).unicode();
    if (sign == FrameSign::begin || sign == FrameSign::end) // a cell's, which no single key deletes
        return false;
    selectDeleted(caret, isBackspace);
    const int first = caret.selectionStart();
    const QTextBlock block = m_document->findBlock(first);
    const int nextEnd = first == endOf(block) ? endOf(block.next()) : -1; // which goes with this one
    return std::any_of(m_places.cbegin(), m_places.cend(), [&](const Place &place) {
        const int position = place.cursor.position();
        return (position >= first && position < caret.selectionEnd()) || position == nextEnd;
    });
}

/// The places of pieces from \a from up to \a end that were not known; they are from now on.
QList<UnseenKeeper::Place> UnseenKeeper::find(int from, int end)
{
    QList<Stretch> runs;
    QList<Stretch> ends;
    for (QTextBlock block = m_document->findBlock(from); block.isValid() && block.position() < end;
         block = block.next()) {
        for (const Stretch &stretch : stretchesOf(block)) {
            if (stretch.end > from && stretch.begin < end && Unseen::isIn(stretch.format))
                (stretch.begin == endOf(block) ? ends : runs).append(stretch);
        }
    }
    std::reverse(ends.begin(), ends.end()); // as the last of them has what no run has
    QList<Place> places;
    for (const Stretch &stretch : runs + ends)
        findIn(stretch.begin, Unseen::of(stretch.format), places);
    std::stable_sort(places.begin(), places.end(),
                     [](const Place &one, const Place &other) { return one.position < other.position; });
    return places;
}

void UnseenKeeper::findIn(int position, const Unseen::Pieces &pieces, QList<Place> &places)
{
    for (const Piece &piece : pieces) {
        if (m_known.contains(piece.get()))
            continue;
        m_known.insert(piece.get());
        Place place{piece, QTextCursor(m_document), position};
        place.cursor.setPosition(position);
        place.isAtEnd = place.cursor.atBlockEnd();
        places.append(place);
    }
}

/// Text that is typed before a character may have its format, and is then what a piece belongs to.
void UnseenKeeper::followCopies(int from, int end)
{
    if (from == end || m_places.isEmpty())
        return;
    const QHash<const Unseen::Piece *, int> copies = piecesOfRuns(*m_document, from, end);
    for (Place &place : m_places) {
        const int position = place.cursor.position();
        place.cursor.setPosition(qMin(position, copies.value(place.piece.get(), position)));
    }
}

/// A change of formats, and several edits in one, are reported as a stretch that is replaced, with all that
/// is between them.
void UnseenKeeper::noteChange(int from, int removed, int added)
{
    if (m_isKeeping)
        return;
    m_latest = {from, from + removed, removed > 0 && added == 0, {}, {}};
    // Of two paragraphs that become one, the end of the first becomes the end of both; the first half of one
    // that is split takes its end along.
    const int last = endOf(m_document->findBlock(qMin(from + added, m_document->characterCount() - 1)));
    QList<Place> left;
    StretchesOfBlock stretches(*m_document);
    followCopies(from, from + added);
    for (Place &place : std::exchange(m_places, {})) {
        const int position = place.cursor.position();
        const bool isUntouched = place.position < from || position > last;
        // An end that has it as its character goes has but a copy, and so may text elsewhere.
        const bool hasSlid = !isUntouched && !place.isAtEnd && place.cursor.atBlockEnd();
        const bool isThere = isUntouched || has(stretches.at(position), place.piece);
        if (!isThere)
            m_known.remove(place.piece.get());
        if (!isThere || hasSlid) {
            m_latest.lost.append(place);
            continue;
        }
        if (m_latest.isBetween(place))
            m_latest.inside.append(place);
        place.position = position;
        place.isAtEnd = place.cursor.atBlockEnd();
        left.append(place);
    }
    const QList<Place> found = added > 0 ? find(from, last + 1) : QList<Place>();
    const bool isSplit = m_document->blockCount() > std::exchange(m_blockCount, m_document->blockCount());
    m_latest.forgetMoved(found, isSplit);
    m_places = left + found;
}

/// False for a step that is undone or redone, which brings formats of its own.
bool UnseenKeeper::wasEdited() const
{
    return !m_document->isRedoAvailable() && (m_hasNewStep || !m_couldRedo);
}

void UnseenKeeper::afterEdit()
{
    if (m_isKeeping)
        return;
    const bool isEdit = wasEdited();
    m_couldRedo = m_document->isRedoAvailable();
    m_hasNewStep = false;
    const Change change = std::exchange(m_latest, {});
    if (!isEdit) {
        for (const Place &place : change.lost) {
            m_known.remove(place.piece.get());
            m_places += find(place.cursor.position(), place.cursor.position() + 1);
        }
        restoreFirstEnd();
    } else if (!(change.lost.isEmpty() && change.inside.isEmpty())) {
        keep(change);
    }
    if (isEdit)
        rememberFirstEnd();
    m_undoSteps = m_document->availableUndoSteps();
}

void UnseenKeeper::keep(const Change &change)
{
    QSet<End> deletedEnds;
    for (const Place &place : change.inside + change.lost) {
        if (change.isBetween(place))
            deletedEnds.insert(endOf(*place.piece));
    }
    const auto isDeleted = [&](const Place &place) {
        return change.isBetween(place) && !isEndAlone(*place.piece, deletedEnds);
    };
    QSet<Piece> taken;
    QMap<int, Unseen::Pieces> moved;
    for (const Place &place : change.inside) {
        if (isDeleted(place))
            taken.insert(place.piece);
    }
    for (const Place &place : change.lost) {
        taken.insert(place.piece);
        if (!isDeleted(place))
            moved[place.cursor.position()].append(place.piece);
    }
    m_isKeeping = true;
    QTextCursor edit(m_document);
    edit.joinPreviousEditBlock();
    remove(taken);
    for (auto each = moved.cbegin(); each != moved.cend(); ++each)
        insert(each.key(), each.value());
    edit.endEditBlock();
    m_isKeeping = false;
}

/// Before what the character at \a position has already.
void UnseenKeeper::insert(int position, const Unseen::Pieces &pieces)
{
    Stretch target = stretchAt(*m_document, position);
    target.begin = position;
    setPieces(*m_document, target, pieces + Unseen::of(target.format));
    m_places += find(position, position + 1);
}

/// From wherever a copied format may have taken them.
void UnseenKeeper::remove(const QSet<Piece> &pieces)
{
    m_places.removeIf([&](const Place &place) { return pieces.contains(place.piece); });
    for (const Piece &piece : pieces)
        m_known.remove(piece.get());
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const QList<Stretch> stretches = stretchesOf(block);
        for (const Stretch &stretch : stretches) {
            Unseen::Pieces left = Unseen::of(stretch.format);
            if (left.removeIf([&](const Piece &piece) { return pieces.contains(piece); }) > 0)
                setPieces(*m_document, stretch, left);
        }
    }
}

/// Qt does not undo what happens to the format of the first paragraph's end.
void UnseenKeeper::rememberFirstEnd()
{
    m_firstEnds.erase(m_firstEnds.upper_bound(m_undoSteps), m_firstEnds.end());
    const Unseen::Pieces pieces = Unseen::of(m_document->firstBlock().charFormat());
    if (pieces != m_firstEnds.rbegin()->second)
        m_firstEnds[m_document->availableUndoSteps()] = pieces;
}

void UnseenKeeper::restoreFirstEnd()
{
    const QTextBlock first = m_document->firstBlock();
    const auto next = m_firstEnds.upper_bound(m_document->availableUndoSteps());
    const Unseen::Pieces &pieces = std::prev(next)->second;
    if (pieces == Unseen::of(first.charFormat()))
        return;
    m_isKeeping = true;
    setPieces(*m_document, stretchesOf(first).last(), pieces);
    m_isKeeping = false;
    m_places.removeIf([&](const Place &place) {
        return place.cursor.position() == endOf(first) && m_known.remove(place.piece.get());
    });
    m_places += find(0, first.length());
}
