#include "RtfPageWriter.h"

#include "PageFormat.h"
#include "PageTexts.h"
#include "RichTextProperties.h"
#include "RtfBodyWriter.h"

#include <QTextDocument>
#include <QTextFrame>

namespace {

QByteArray texts(const QTextFrameFormat &format, RtfHeader &header)
{
    QByteArray out;
    for (int kind = 0; kind < PageTexts::KindCount; ++kind) {
        const auto text = PageTexts::text(format, PageTexts::Kind(kind));
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
    const QByteArray information = format.property(RichTextProperty::Information).toByteArray();
    return information + words + texts(format, header);
}

QByteArray RtfPageWriter::write(const QTextFrameFormat &section, RtfHeader &header)
{
    const QByteArray words = PageFormat::sectionWords(section);
    return (words.isEmpty() ? "\\sectd" : words) + '\n' + texts(section, header);
}
