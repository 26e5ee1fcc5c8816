#pragma once

#include <QList>
#include <QTextDocument>

class QTextDocumentPrivate;

/// A step of undo that gives runs of a document another text, all at once; undone and done again it gives
/// them the one that they had.
///
/// A run is a stretch of text of one format, a node in Qt's tree of them. Qt changes text by taking nodes out
/// and putting others in, microseconds each, and notifies every cursor of each. Here the nodes stay and come
/// to mean another part of the document's buffer. Qt and the cursors only hear that the text has
/// changed, so all the runs together have to keep their length.
class RunExchange : public QAbstractUndoItem
{
public:
    /// A part of the document's buffer, in which nothing ever moves while undo is on.
    struct Part
    {
        int start = 0;
        int length = 0;
    };
    struct Run
    {
        int position = 0; ///< in the text as it is now
        int format = 0;
        Part text;  ///< what it shows; empty: there is no such run yet
        Part other; ///< what it is to show
    };

    /// \a runs ascend, and each is within one paragraph.
    RunExchange(QTextDocumentPrivate &document, const QList<Run> &runs);

    void undo() override { exchange(); }
    void redo() override { exchange(); }

private:
    void exchange();

    QTextDocumentPrivate &m_document;
    QList<Run> m_runs;
};
