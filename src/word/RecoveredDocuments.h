#pragma once

#include <QStringList>

/// The documents that an earlier run of the suite left behind in recovery copies.
struct RecoveredDocuments
{
    /// Opens each in a window of its own. A copy that cannot be read, and one that made an earlier start
    /// fail, is left in its folder as it is.
    static RecoveredDocuments open();

    /// What the status bar says about them; empty when there is nothing to say.
    QString notice() const;

    QStringList captions; ///< of those that are open now
    int failedCopies = 0; ///< those that made an earlier start fail
};
