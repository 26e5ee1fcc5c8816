#include "TextPieces.h"

#include <private/qtextdocument_p.h>

bool TextPieces::any(const QTextDocument &document, int from, int length,
                     const std::function<bool(QStringView)> &isWanted)
{
    const auto &text = *QTextDocumentPrivate::get(&document);
    const QString buffer = text.buffer();
    auto run = text.find(from);
    for (int end = run.atEnd() ? from : run.position(); !run.atEnd() && end < from + length; ++run) {
        if (isWanted(QStringView(buffer).mid(run->stringPosition, run.size())))
            return true;
        end += run.size();
    }
    return false;
}
