#include "DocumentTables.h"

#include <QTextDocument>
#include <QTextTable>

QList<QTextTable *> DocumentTables::of(const QTextDocument &document)
{
    QList<QTextTable *> tables;
    QList<QTextFrame *> frames{document.rootFrame()};
    while (!frames.isEmpty()) {
        QTextFrame *frame = frames.takeLast();
        frames += frame->childFrames();
        if (auto *table = qobject_cast<QTextTable *>(frame))
            tables.append(table);
    }
    return tables;
}
