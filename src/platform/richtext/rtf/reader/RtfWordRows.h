#pragma once

#include <QHash>
#include <QList>

/// Rows of words with numbers, such as the tab stops of a paragraph, each row known by one number, so that a
/// paragraph's state stays small.
///
/// A row is a row with one word less and a word at its end; 0 is the empty row.
class RtfWordRows
{
public:
    struct Entry
    {
        int before = 0;
        int count = 0;
        int word = 0;
        int value = 0;
    };

    /// The row \a row with \a word at its end; \a row itself where it is longer than any program's.
    int add(int row, int word, int value);

    QList<Entry> entries(int row) const; ///< in order

private:
    QList<Entry> m_entries = {Entry()};
    QHash<std::pair<int, qint64>, int> m_rows; ///< by the row before and the word added
};
