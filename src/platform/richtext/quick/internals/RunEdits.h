#pragma once

#include "RunExchange.h"
#include "TreeWalk.h"

#include <private/qtextdocument_p.h>

/// Replacements of text within the runs of a document, noted one by one and then made all at once, which
/// takes a fraction of the time.
class RunEdits
{
public:
    explicit RunEdits(QTextDocument &document);

    /// Notes that \a text comes in place of the \a length characters at \a position in the document as it is.
    /// Each position is behind what the one before replaces, and \a text has no line end. False when those
    /// characters are not text of a single run; then nothing is noted.
    bool replace(int position, int length, const QString &text);

    /// Makes the replacements, within the edit block that the caller has begun. Cursors between the first and
    /// the last of them stay somewhere there.
    void apply();

private:
    bool beginRun(int position, int length);
    bool isText(int position, int format);
    void endRun();
    int putInTexts(int position, int format);

    QTextDocumentPrivate &m_document;
    TreeWalk<const QTextDocumentPrivate::FragmentMap> m_walk;
    int m_textFormat = -1; ///< the last one that was seen to be of text
    QList<RunExchange::Run> m_runs;
    QString m_texts;  ///< of the runs as they will be, one behind the other; others start in there
    int m_copied = 0; ///< characters of the last run that are in the texts already, or replaced
};
