#pragma once

#include "Unseen.h"

#include <QObject>
#include <QTextCursor>

class QTextDocument;

/// Keeps what is not shown (see Unseen) when the text behind it is deleted: it goes to what follows. With
/// deleted text on both sides it is deleted too, but for the end of a bookmark or of a comment's range whose
/// other end is left. That is part of the edit's own undo step.
class UnseenKeeper : public QObject
{
    Q_OBJECT

public:
    /// Takes care of \a document in place of the one before.
    void attach(QTextDocument &document);

private:
    struct Place
    {
        std::shared_ptr<const Unseen::Piece> piece;
        QTextCursor cursor; ///< at the character, or the paragraph's end, whose format has the piece
        int position = 0;   ///< of the cursor before the latest change
    };

    void noteChange(int from, int removed, int added);
    void afterEdit();
    void find(int from, int end);
    bool isKnown(const Unseen::Piece *piece) const;
    bool isDeleted(const Place &place) const;
    bool isMoved(const Place &place) const;
    bool wasEdited() const;
    void insert(int position, const Unseen::Pieces &pieces);
    void remove(const Place &place);

    QTextDocument *m_document = nullptr;
    QList<Place> m_places;
    QList<Place> m_inside; ///< what the latest change left though text on both sides was deleted
    QList<Place> m_lost;   ///< by the latest change, in the order of their old positions
    int m_removedFrom = 0; ///< the deleted text, in old positions
    int m_removedEnd = 0;
    bool m_hasNewStep = false;
    bool m_couldRedo = false;
};
