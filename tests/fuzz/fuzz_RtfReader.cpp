#include "RichTextFile.h"
#include "RtfReader.h"
#include "RtfWriter.h"

#include <QTextDocument>
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

/// Notes are counted anew where one of them no longer has a number.
QByteArray textWithoutNumbers(const QTextDocument &document)
{
    QString text = RichTextFile::text(document);
    text.removeIf([](QChar c) { return c.isDigit(); });
    return text.toUtf8();
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
    if (textWithoutNumbers(first) != textWithoutNumbers(second))
        fail("text", textWithoutNumbers(first), textWithoutNumbers(second));

    const QByteArray written = RtfWriter::write(second);
    if (written == RtfWriter::write(first))
        return 0;
    QTextDocument third;
    RtfReader::read(written, third);
    if (RtfWriter::write(third) != written)
        fail("rich text", written, RtfWriter::write(third));
    return 0;
}
