#pragma once

#include "MisspellingFinder.h"
#include "ViewMarks.h"

#include <optional>
#include <utility>

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

    /// To be called before the view shows another document.
    void forget() { m_known.reset(); }

    /// The marks of the misspelt words in view, without the one that is being typed.
    QList<ViewMarks::Mark> visible() const;

    /// Looks for suggestions for the misspelt word at \a position, if there is one. They come into \a menu
    /// when they are there: before its items, or where one is pointed at already as many behind them as there
    /// is room for.
    void addSuggestions(QMenu &menu, int position);

private:
    /// The misspellings of a stretch of the document as it was at a revision.
    struct Known
    {
        int revision = 0;
        std::pair<int, int> stretch;
        QList<MisspellingFinder::Misspelling> misspellings;
    };

    const QList<MisspellingFinder::Misspelling> &inView() const;
    std::optional<MisspellingFinder::Misspelling> at(int position) const;
    void insert(const MisspellingFinder::Misspelling &misspelling, const QStringList &words,
                QMenu &menu) const;
    void replace(const MisspellingFinder::Misspelling &misspelling, const QString &word) const;

    QTextEdit &m_view;
    const LongDocuments &m_documents;
    mutable std::optional<Known> m_known; ///< a view is painted more often than it changes
    bool m_on = false;
};
