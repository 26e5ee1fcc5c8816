#pragma once

#include <QString>
#include <span>

/// A table of names that contacts refer to, as the tree and the list show it.
struct BookTable
{
    /// "Groups", "City" and "State", in the order of the tree.
    static std::span<const BookTable> all();
    /// The one whose key is \a key but for case; nullptr where there is none.
    static const BookTable *of(const QString &key);

    QString key;       ///< of its head in the tree, and its name
    QString caption;   ///< the head's text
    QString statement; ///< gives its rows for the tree
    QString idField;
    QString nameField;
    QString rowKey;    ///< what precedes the id in the key of a row's node
    QString condition; ///< on the list's contacts, those of a row; "%1" is the id
};
