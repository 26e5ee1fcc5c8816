#pragma once

#include "TextStyles.h"

#include <QHash>

class WrittenColours;
class WrittenFonts;

/// The styles of a document being written.
class WrittenStyles
{
public:
    /// What \a sheet names is added to \a fonts and \a colours.
    void set(const TextStyles::Sheet &sheet, WrittenFonts &fonts, WrittenColours &colours);

    /// The word that gives a paragraph the style named \a name; empty where there is none of that name, such
    /// as in a document that the paragraph was pasted into.
    QByteArray word(const QString &name) const;

    /// The style sheet, a group; empty without styles.
    QByteArray table() const { return m_table; }

private:
    QHash<QString, int> m_paragraphStyles;
    QByteArray m_table;
};
