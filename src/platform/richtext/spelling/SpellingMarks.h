#pragma once

#include "MisspellingFinder.h"
#include "ViewMarks.h"

#include <optional>

class LongDocuments;
class QMenu;

/// Underlines the misspelt words in view, and offers better ones. Where the desktop has no dictionary of a
/// text's language nothing shows.
class SpellingMarks
{
public:
    /// \a documents takes care of those that \a view shows.
    SpellingMarks(QTextEdit &view, const LongDocuments &documents);

    void setOn(bool on);

    /// The marks of the misspelt words in view, without the one that is being typed.
    QList<ViewMarks::Mark> visible() const;

    /// Puts suggestions for the misspelt word at \a position, if there is one, before the items of \a menu.
    void addSuggestions(QMenu &menu, int position) const;

private:
    std::optional<MisspellingFinder::Misspelling> at(int position) const;
    void replace(const MisspellingFinder::Misspelling &misspelling, const QString &word) const;

    QTextEdit &m_view;
    const LongDocuments &m_documents;
    bool m_on = false;
};
