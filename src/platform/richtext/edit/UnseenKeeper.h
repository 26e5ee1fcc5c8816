#pragma once

#include "Unseen.h"

#include <QObject>
#include <QSet>
#include <QTextCursor>
#include <map>

class QKeyEvent;
class QTextDocument;

/// Keeps what is not shown (see Unseen) when the text behind it is deleted: it goes to what follows. Where
/// one deletion takes the text on both sides, it goes too, but for the end of a bookmark or of a comment's
/// range whose other end is left. That is part of the edit's own undo step.
class UnseenKeeper : public QObject
{
    Q_OBJECT

public:
    /// Takes care of \a document in place of the one before.
    void attach(QTextDocument &document);

    /// To be called before \a key takes effect at \a caret. True with the character selected that it
    /// is about to delete, where that has something: Qt makes a step of its own of the deletion of a single
    /// character.
    bool beforeKey(const QKeyEvent &key, QTextCursor &caret) const;

private:
    using Piece = std::shared_ptr<const Unseen::Piece>;
    struct Place
    {
        Piece piece;
        QTextCursor cursor;   ///< at the character, or the paragraph's end, whose format has the piece
        int position = 0;     ///< of the cursor before the latest change
        bool isAtEnd = false; ///< of a paragraph, the same
    };
    struct Change
    {
        int from = 0;
        int end = 0;             ///< of what was there before
        bool isDeletion = false; ///< of one stretch, and nothing else
        QList<Place> lost;
        QList<Place> inside; ///< still there, though the text on both sides was deleted

        bool isBetween(const Place &place) const;
        void forgetMoved(const QList<Place> &found, bool isSplit);
    };

    void noteChange(int from, int removed, int added);
    void followCopies(int from, int end);
    void afterEdit();
    void keep(const Change &change);
    QList<Place> find(int from, int end);
    void findIn(int position, const Unseen::Pieces &pieces, QList<Place> &places);
    bool wasEdited() const;
    void insert(int position, const Unseen::Pieces &pieces);
    void remove(const QSet<Piece> &pieces);
    void rememberFirstEnd();
    void restoreFirstEnd();

    QTextDocument *m_document = nullptr;
    QList<Place> m_places;
    QSet<const Unseen::Piece *> m_known; ///< the pieces of the places
    Change m_latest;
    int m_blockCount = 0;
    /// What the first paragraph's end has, by the number of undo steps since which it has that
    std::map<int, Unseen::Pieces> m_firstEnds;
    int m_undoSteps = 0; ///< Qt's, after the latest change
    bool m_hasNewStep = false;
    bool m_couldRedo = false;
    bool m_isKeeping = false;
};
