#include "RunReplacement.h"

#include "RunEdits.h"

QList<int> RunReplacement::replace(QTextDocument &document, const QList<int> &places, int length,
                                   const QString &text)
{
    RunEdits edits(document);
    QList<int> left;
    for (int i = 0; i < places.size(); ++i) {
        if (!edits.replace(places.at(i), length, text))
            left.append(i);
    }
    edits.apply();
    return left;
}
