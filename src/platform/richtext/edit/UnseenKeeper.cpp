#include "UnseenKeeper.h"

#include "EventGate.h"

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

/// As part of the latest undo step.
void setPieces(QTextDocument &document, const Stretch &stretch, const Unseen::Pieces &pieces)
{
    QTextCharFormat added;
    Unseen::set(added, pieces);
    QTextCursor edit(&document);
    edit.joinPreviousEditBlock();
    edit.setPosition(stretch.begin);
    if (edit.atBlockEnd()) {
        edit.mergeBlockCharFormat(added);
    } else {
        edit.setPosition(stretch.end, QTextCursor::KeepAnchor);
        edit.mergeCharFormat(added);
    }
    edit.endEditBlock();
}

/// One end of what reaches over text.
struct End
{
    QByteArray name; ///< null for what has no ends
    bool isFirst = false;
};

End endOf(const Unseen::Piece &piece)
{
    for (const QByteArray kind : {"{\\*\\bkmk", "{\\*\\atrf"}) {
        if (!piece.before.startsWith(kind))
            continue;
        const QByteArray words = piece.before.mid(kind.size());
        return {kind + words.mid(words.indexOf(' ')), words.startsWith("start")};
    }
    return {};
}

/// Whether \a piece is one end, and the other one is not in \a pieces.
bool isEndAlone(const Unseen::Piece &piece, const Unseen::Pieces &pieces)
{
    const End end = endOf(piece);
    return !end.name.isNull() && std::none_of(pieces.cbegin(), pieces.cend(), [&](const auto &other) {
        const End otherEnd = endOf(*other);
        return otherEnd.name == end.name && otherEnd.isFirst != end.isFirst;
    });
}

} // namespace

void UnseenKeeper::attach(QTextDocument &document)
{
    m_document = &document;
    m_places.clear();
    m_lost.clear();
    m_hasNewStep = m_couldRedo = false;
    const QList<QTextFormat> formats = document.allFormats();
    if (std::any_of(formats.cbegin(), formats.cend(), Unseen::isIn))
        find(0, document.characterCount());
    on(&document, &QTextDocument::undoCommandAdded, this, [this] { m_hasNewStep = true; });
    on(&document, &QTextDocument::contentsChange, this, &UnseenKeeper::noteChange);
    on(&document, &QTextDocument::contentsChanged, this, &UnseenKeeper::afterEdit);
}

bool UnseenKeeper::isKnown(const Unseen::Piece *piece) const
{
    return std::any_of(m_places.cbegin(), m_places.cend(),
                       [=](const Place &place) { return place.piece.get() == piece; });
}

/// Remembers the pieces from \a from up to \a end that are new.
void UnseenKeeper::find(int from, int end)
{
    for (QTextBlock block = m_document->findBlock(from); block.isValid() && block.position() < end;
         block = block.next()) {
        const QList<Stretch> stretches = stretchesOf(block);
        for (const Stretch &stretch : stretches) {
            if (stretch.end <= from || stretch.begin >= end || !Unseen::isIn(stretch.format))
                continue;
            for (const auto &piece : Unseen::of(stretch.format)) {
                if (isKnown(piece.get()))
                    continue;
                Place place{piece, QTextCursor(m_document), stretch.begin};
                place.cursor.setPosition(stretch.begin);
                m_places.append(place);
            }
        }
    }
}

void UnseenKeeper::noteChange(int from, int removed, int added)
{
    m_removedFrom = from;
    m_removedEnd = from + removed;
    m_inside.clear();
    m_lost.clear();
    // Of two paragraphs that become one, the end of the first becomes the end of both; the first half of one
    // that is split takes its end along.
    const int last = endOf(m_document->findBlock(from + added));
    QList<Place> places = std::exchange(m_places, {});
    for (Place &place : places) {
        const int position = place.cursor.position();
        const bool isFar = place.position < from || position > last;
        const bool isLeft = isFar || has(stretchAt(*m_document, position), place.piece);
        if (isLeft && isDeleted(place))
            m_inside.append(place);
        if (isLeft)
            place.position = place.cursor.position();
        (isLeft ? m_places : m_lost).append(place);
    }
    if (added > 0)
        find(from, from + added);
    m_lost.removeIf([this](const Place &place) { return isMoved(place); });
    std::sort(m_lost.begin(), m_lost.end(),
              [](const Place &one, const Place &other) { return one.position < other.position; });
}

/// Whether the piece went elsewhere with its text.
bool UnseenKeeper::isMoved(const Place &place) const
{
    return std::any_of(m_places.cbegin(), m_places.cend(), [&](const Place &other) {
        return other.piece == place.piece && !(place.cursor.atBlockEnd() && other.cursor.atBlockEnd());
    });
}

/// Whether the text on both sides is.
bool UnseenKeeper::isDeleted(const Place &place) const
{
    return place.position > m_removedFrom && place.position < m_removedEnd;
}

/// False for a step that is undone or redone, which brings formats of its own.
bool UnseenKeeper::wasEdited() const
{
    return !m_document->isRedoAvailable() && (m_hasNewStep || !m_couldRedo);
}

void UnseenKeeper::afterEdit()
{
    const bool isEdit = wasEdited();
    m_couldRedo = m_document->isRedoAvailable();
    m_hasNewStep = false;
    const QList<Place> inside = std::exchange(m_inside, {});
    const QList<Place> lost = std::exchange(m_lost, {});
    if (!isEdit)
        return;
    Unseen::Pieces pieces;
    for (const Place &place : inside + lost)
        pieces.append(place.piece);
    QList<std::pair<int, Unseen::Pieces>> moved{{m_removedFrom, {}}};
    for (const Place &place : lost) {
        if (place.position >= m_removedEnd)
            moved.append({place.cursor.position(), {place.piece}});
        else if (!isDeleted(place) || isEndAlone(*place.piece, pieces))
            moved.first().second.append(place.piece);
    }
    for (const Place &place : inside) { // from here on there are changes of our own
        if (!isEndAlone(*place.piece, pieces))
            remove(place);
    }
    for (const auto &[position, these] : std::as_const(moved)) {
        if (!these.isEmpty())
            insert(position, these);
    }
}

/// Before what the character at \a position has already.
void UnseenKeeper::insert(int position, const Unseen::Pieces &pieces)
{
    m_places.removeIf([&](const Place &place) { return pieces.contains(place.piece); });
    Stretch target = stretchAt(*m_document, position);
    target.begin = position;
    setPieces(*m_document, target, pieces + Unseen::of(target.format));
    find(position, position + 1);
}

void UnseenKeeper::remove(const Place &place)
{
    m_places.removeIf([&](const Place &other) { return other.piece == place.piece; });
    const QList<Stretch> stretches = stretchesOf(m_document->findBlock(place.cursor.position()));
    for (const Stretch &stretch : stretches) {
        Unseen::Pieces pieces = Unseen::of(stretch.format);
        if (pieces.removeAll(place.piece) > 0)
            setPieces(*m_document, stretch, pieces);
    }
}
