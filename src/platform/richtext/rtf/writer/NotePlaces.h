#pragma once

#include <QHash>
#include <QTextFormat>

class QTextDocument;
class QTextFragment;

/// Where a document has its notes: each that has a mark in the text and, elsewhere, paragraphs of its own.
/// A note without one of both is no note any more, nor is one whose mark is neither its number nor raised;
/// what is left of it is text.
class NotePlaces
{
public:
    struct Note
    {
        int mark = -1;  ///< position of the mark in the text
        int first = -1; ///< position where its own text begins
        int last = -1;  ///< position of the end of its last paragraph
        bool isAtEnd = false;
        bool isCounted = false; ///< its mark, and what its text begins with, are its number
    };

    /// No places at all; for what is no whole document.
    NotePlaces() = default;
    explicit NotePlaces(const QTextDocument &document);

    bool isEmpty() const { return m_notes.isEmpty(); }

    /// The number of the note whose text a paragraph at the position \a first begins, 0 for none.
    int noteAt(int first) const { return m_firsts.value(first); }
    /// The number of the note that has its mark at \a position, 0 for none.
    int markAt(int position) const { return m_marks.value(position); }
    Note note(int number) const { return m_notes.value(number); }

private:
    void findTexts(const QTextDocument &document);
    void findMarks(const QTextDocument &document);

    QHash<int, Note> m_notes; ///< by number
    QHash<int, int> m_firsts; ///< numbers by position
    QHash<int, int> m_marks;
};
