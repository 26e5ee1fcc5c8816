#pragma once

#include "ReplaceAllPlan.h"

#include <QStringMatcher>

/// A replace-all that replaces each occurrence once, on the way round the text to where it began. What is put
/// in is never searched.
class ReplaceAllRound
{
public:
    /// Texts are as they are compared, so in lower case unless the case has to match.
    ReplaceAllRound(const QString &text, const QString &wanted, const QString &replacement, bool isWholeWord);

    /// True when no hit can hold a part of what is put in. Then all rounds of the loop do what one does.
    static bool isAllThereIs(const QString &wanted, const QString &replacement);

    /// Begins at the selection from \a start to \a end, which is not replaced itself.
    ReplaceAllPlan::Steps goDown(int start, int end);
    ReplaceAllPlan::Steps goUp(int start, int end);

private:
    bool passDown(qsizetype from, qsizetype to);
    bool passUp(qsizetype from, qsizetype floor);
    bool accept(qsizetype hit, qsizetype growth, QChar before, QChar behind);
    QChar at(qsizetype position) const;

    QString m_text;
    QString m_wanted;
    QString m_replacement;
    bool m_isWholeWord;
    QStringMatcher m_matcher;
    ReplaceAllPlan::Steps m_steps;
};
