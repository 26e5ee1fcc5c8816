#include "RichTextFile.h"
#include "RichTextProperties.h"
#include "RtfReader.h"
#include "RtfWriter.h"

#include <QTextDocument>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// Ends the process with what \a first and \a second are, so that the input is kept.
[[noreturn]] void fail(const char *what, const QByteArray &first, const QByteArray &second)
{
    std::fprintf(stderr, "%s differs\n--- first\n%s\n--- second\n%s\n", what, first.constData(),
                 second.constData());
    std::abort();
}

bool hasNotes(const QTextDocument &document)
{
    const QList<QTextFormat> formats = document.allFormats();
    return std::any_of(formats.begin(), formats.end(),
                       [](const QTextFormat &format) { return format.hasProperty(RichTextProperty::Note); });
}

/// Notes are counted anew, and follow in the order of their marks, where one of them has no number or no
/// mark: then it is the paragraphs that have to be the same.
QByteArray comparableText(const QTextDocument &document, bool hasNotes)
{
    QString text = RichTextFile::text(document);
    if (!hasNotes)
        return text.toUtf8();
    text.removeIf([](QChar c) { return c.isDigit(); });
    QStringList paragraphs = text.split(u'\n');
    paragraphs.sort();
    return paragraphs.join(u'\n').toUtf8();
}

} // namespace

/// Reads any bytes, writes the result and reads that: the text has to be the same. What the first
/// writing made straight, such as columns narrower than a pixel, has to be written alike from the second time
/// on.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QTextDocument first;
    RtfReader::read(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), first);
    QTextDocument second;
    RtfReader::read(RtfWriter::write(first), second);
    const QByteArray read = comparableText(first, hasNotes(first));
    const QByteArray readAgain = comparableText(second, hasNotes(first));
    if (read != readAgain)
        fail("text", read, readAgain);

    const QByteArray written = RtfWriter::write(second);
    if (written == RtfWriter::write(first))
        return 0;
    QTextDocument third;
    RtfReader::read(written, third);
    if (RtfWriter::write(third) != written)
        fail("rich text", written, RtfWriter::write(third));
    return 0;
}
