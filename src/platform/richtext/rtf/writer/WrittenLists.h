#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QTextListFormat>

class QTextList;
class WrittenFonts;

/// The lists that a document being written has met so far: their tables, and the marks of their items.
class WrittenLists
{
public:
    /// The words that make a paragraph with the words \a indents an item of \a list. The first item's indents
    /// are the list's own, which some programs heed alone. \a fonts are filled with those of bullets.
    QByteArray words(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts);

    /// The mark of the next item of \a list, a group: what programs without list tables show.
    QByteArray nextMark(const QTextList &list);

    /// The list table and its overrides, two groups; empty when there was no list.
    QByteArray tables() const;

private:
    struct Definition
    {
        QList<QByteArray> levels;     ///< what the file says of each, from the first to the deepest
        QHash<int, QByteArray> looks; ///< without indents, of those that a list has
    };

    int number(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts);
    int outline(const QTextListFormat &format, const Definition &own);

    QList<Definition> m_definitions;
    QHash<QByteArray, int> m_bullets; ///< bullet lists of one look are one list
    QHash<int, int> m_outlines;       ///< by RichTextProperty::ListNumber, the one that goes on
    QHash<const QTextList *, int> m_numbers;
    QHash<const QTextList *, int> m_items; ///< items met so far
};
