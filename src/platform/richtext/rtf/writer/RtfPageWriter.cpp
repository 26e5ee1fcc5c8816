#include "RtfPageWriter.h"

#include "PageFormat.h"
#include "PageTexts.h"
#include "RtfBodyWriter.h"

#include <QTextDocument>
#include <QTextFrame>

namespace {

QByteArray texts(const QTextDocument &document, RtfHeader &header)
{
    QByteArray out;
    for (int kind = 0; kind < PageTexts::KindCount; ++kind) {
        const auto text = PageTexts::text(document, PageTexts::Kind(kind));
        if (!text)
            continue;
        out.append("{\\").append(PageTexts::word(PageTexts::Kind(kind))).append("\\pard\\plain\n");
        out.append(RtfBodyWriter(*text, 0, text->characterCount(), header).write()).append("}\n");
    }
    return out;
}

} // namespace

QByteArray RtfPageWriter::write(const QTextDocument &document, RtfHeader &header)
{
    const QTextFrameFormat format = document.rootFrame()->frameFormat();
    QByteArray words = PageFormat::documentWords(format) + PageFormat::sectionWords(format);
    if (!words.isEmpty())
        words.append('\n');
    return words + texts(document, header);
}
