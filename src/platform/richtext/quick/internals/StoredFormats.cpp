#include "StoredFormats.h"

#include <QTextBlockFormat>
#include <private/qtextdocument_p.h>

int StoredFormats::changeParagraphs(QTextDocument &document, int first,
                                    const std::function<void(QTextBlockFormat &)> &change)
{
    auto &formats = QTextDocumentPrivate::get(&document)->formatCollection()->formats;
    for (qsizetype i = first; i < formats.size(); ++i) {
        if (!formats.at(i).isBlockFormat())
            continue;
        QTextBlockFormat format = formats.at(i).toBlockFormat();
        change(format);
        formats[i] = format;
    }
    return int(formats.size());
}
