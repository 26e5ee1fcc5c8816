#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

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
    int number(const QTextList &list, const QByteArray &indents, WrittenFonts &fonts);

    QList<QByteArray> m_definitions;
    QHash<QByteArray, int> m_bullets; ///< bullet lists of one look are one list
    QHash<const QTextList *, int> m_numbers;
    QHash<const QTextList *, int> m_items; ///< items met so far
};
