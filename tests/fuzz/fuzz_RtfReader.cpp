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

} // namespace

/// Reads any bytes, writes what came of them and reads that: the text has to be the same, and so do the bytes
/// written from then on.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    QTextDocument document;
    RtfReader::read(bytes, document);
    const QByteArray written = RtfWriter::write(document);

    QTextDocument again;
    RtfReader::read(written, again);
    const QString text = RichTextFile::text(document);
    const QString textAgain = RichTextFile::text(again);
    if (text != textAgain)
        fail("text", text.toUtf8(), textAgain.toUtf8() + "\n--- written\n" + written);
    const QByteArray writtenAgain = RtfWriter::write(again);
    if (written != writtenAgain)
        fail("rich text", written, writtenAgain);
    return 0;
}
