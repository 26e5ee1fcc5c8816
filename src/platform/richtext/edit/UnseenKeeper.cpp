#include "UnseenKeeper.h"

#include "EventGate.h"

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

/// Whether \a piece is one end of what has its other end not in \a ends.
bool isEndAlone(const Unseen::Piece &piece, const QSet<End> &ends)
{
    const End end = endOf(piece);
    return !end.name.isNull() && !ends.contains({end.name, !end.isFirst});
}

bool isEqual(const std::shared_ptr<const Unseen::Piece> &one,
             const std::shared_ptr<const Unseen::Piece> &other)
{
    return one == other || *one == *other;
}

} // namespace

bool UnseenKeeper::Change::isBetween(const Place &place) const
{
    return isDeletion && place.position > from && place.position < end;
}

void UnseenKeeper::attach(QTextDocument &document)
{
    m_document = &document;
    m_places.clear();
    m_known.clear();
    m_latest = {};
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
    const bool isDelete = key.key() == Qt::Key_Delete && !caret.atEnd();
    const bool isBackspace = key.key() == Qt::Key_Backspace && !caret.atBlockStart();
    if (m_places.isEmpty() || caret.hasSelection() || key.modifiers() != Qt::NoModifier ||
        (!isDelete && !isBackspace))
        return false;
    const int deleted = caret.position() - (isBackspace ? 1 : 0);
    const char16_t sign = m_document->characterAt(deleted).unicode();
    if (sign == 0xFDD0 || sign == 0xFDD1) // a cell's, which no single key deletes
        return false;
    return Unseen::isIn(stretchAt(*m_document, deleted).format) &&
           caret.movePosition(isDelete ? QTextCursor::NextCharacter : QTextCursor::PreviousCharacter,
                              QTextCursor::KeepAnchor);
}

/// The places of pieces from \a from up to \a end that were not known; they are from now on.
QList<UnseenKeeper::Place> UnseenKeeper::find(int from, int end)
{
    QList<Place> places;
    for (QTextBlock block = m_document->findBlock(from); block.isValid() && block.position() < end;
         block = block.next()) {
        const QList<Stretch> stretches = stretchesOf(block);
        for (const Stretch &stretch : stretches) {
            if (stretch.end <= from || stretch.begin >= end || !Unseen::isIn(stretch.format))
                continue;
            for (const Piece &piece : Unseen::of(stretch.format)) {
                if (m_known.contains(piece.get()))
                    continue;
                m_known.insert(piece.get());
                Place place{piece, QTextCursor(m_document), stretch.begin};
                place.cursor.setPosition(stretch.begin);
                places.append(place);
            }
        }
    }
    return places;
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
    for (Place &place : std::exchange(m_places, {})) {
        const int position = place.cursor.position();
        const bool isFar = place.position < from || position > last;
        if (!isFar && !has(stretches.at(position), place.piece)) {
            m_known.remove(place.piece.get());
            m_latest.lost.append(place);
            continue;
        }
        if (m_latest.isBetween(place))
            m_latest.inside.append(place);
        place.position = position;
        left.append(place);
    }
    const QList<Place> found = added > 0 ? find(from, last + 1) : QList<Place>();
    m_latest.lost.removeIf([&](const Place &place) { // what was moved
        return std::any_of(found.cbegin(), found.cend(), [&](const Place &other) {
            return isEqual(other.piece, place.piece) &&
                   !(place.cursor.atBlockEnd() && other.cursor.atBlockEnd());
        });
    });
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
    if (isEdit && !(change.lost.isEmpty() && change.inside.isEmpty()))
        keep(change);
}

void UnseenKeeper::keep(const Change &change)
{
    QSet<End> deleted;
    for (const Place &place : change.inside + change.lost) {
        if (change.isBetween(place))
            deleted.insert(endOf(*place.piece));
    }
    QMap<int, Unseen::Pieces> moved;
    for (const Place &place : change.lost) {
        if (!change.isBetween(place) || isEndAlone(*place.piece, deleted))
            moved[place.cursor.position()].append(place.piece);
    }
    m_isKeeping = true;
    QTextCursor edit(m_document);
    edit.joinPreviousEditBlock();
    for (const Place &place : change.inside) {
        if (!isEndAlone(*place.piece, deleted))
            remove(place);
    }
    for (auto each = moved.cbegin(); each != moved.cend(); ++each)
        insert(each.key(), each.value());
    edit.endEditBlock();
    m_isKeeping = false;
}

/// Before what the character at \a position has already.
void UnseenKeeper::insert(int position, const Unseen::Pieces &pieces)
{
    m_places.removeIf([&](const Place &place) { return pieces.contains(place.piece); });
    for (const Piece &piece : pieces)
        m_known.remove(piece.get());
    Stretch target = stretchAt(*m_document, position);
    target.begin = position;
    setPieces(*m_document, target, pieces + Unseen::of(target.format));
    m_places += find(position, position + 1);
}

/// It stays with the end of a paragraph: Qt does not undo what happens to the first one's.
void UnseenKeeper::remove(const Place &place)
{
    const QTextBlock block = m_document->findBlock(place.cursor.position());
    const QList<Stretch> stretches = stretchesOf(block);
    for (const Stretch &stretch : stretches) {
        Unseen::Pieces pieces = Unseen::of(stretch.format);
        if (stretch.begin != endOf(block) && pieces.removeAll(place.piece) > 0)
            setPieces(*m_document, stretch, pieces);
    }
}
