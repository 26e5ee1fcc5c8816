#pragma once

#include <QHash>
#include <QList>
#include <QTextOption>

struct RtfToken;

/// The rows of tab stops that paragraphs have, each known by one number, so that a paragraph's state stays
/// small.
///
/// A row is a row with one word less and a word at its end; 0 is the empty row.
class RtfTabStops
{
public:
    /// Adds what \a token says to the row \a row; false when it says nothing about tabs.
    bool apply(const RtfToken &token, int &row);

    QList<QTextOption::Tab> tabs(int row) const; ///< in pixels
    QString words(int row) const;                ///< as RichTextProperty::TabStops

private:
    struct Entry
    {
        int before = 0;
        int count = 0;
        int word = 0; ///< index of the spelling
        int twips = 0;
    };

    QList<Entry> entries(int row) const;

    QList<Entry> m_entries = {Entry()};
    QHash<std::pair<int, qint64>, int> m_rows; ///< by the row before and the word added
};
