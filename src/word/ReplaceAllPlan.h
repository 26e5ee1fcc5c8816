#pragma once

#include <QList>
#include <QString>
#include <optional>

/// Where a replace-all replaces. It is defined as a loop: replace the selection, read the text again, search,
/// and so on until nothing is found. Here the result of the loop is computed in a few passes over one text.
///
/// Where the replacement holds what is searched for, the loop would never end. Then each occurrence
/// that was there from the start is replaced once, on the way round to where the run began.
namespace ReplaceAllPlan {

struct Steps
{
    QList<int> positions;       ///< of each hit, in the text as the hits before it have left it
    std::optional<int> refused; ///< the end of the hit that ended the run, as it is no whole word

    bool operator==(const Steps &) const = default;
};

/// The steps after the selection has been replaced; what was put in is from \a start to \a end of \a text.
/// \a flags are of FindFlag. Line ends are "\n" in all texts; a "\r" in \a text is one that nothing matches.
Steps after(const QString &text, int start, int end, const QString &wanted, const QString &replacement,
            int flags);

} // namespace ReplaceAllPlan
