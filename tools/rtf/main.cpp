#include "RichTextFile.h"
#include "RuntimeError.h"

#include <QFile>
#include <QStringList>
#include <QTextDocument>
#include <cerrno>
#include <cstdio>

namespace {

void printText(const QString &path)
{
    QTextDocument document;
    RichTextFile::load(path, document);
    QByteArray text = RichTextFile::text(document).toUtf8();
    if (!text.endsWith('\n'))
        text.append('\n');
    const bool isWritten =
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout) == size_t(text.size());
    if (!isWritten || std::fflush(stdout) != 0)
        throw RuntimeError::fromErrno(errno, QStringLiteral("standard output"));
}

void saveAsRichText(const QString &from, const QString &to)
{
    QTextDocument document;
    document.setDefaultFont(
        QFont(QStringLiteral("Times New Roman"), 12)); // there is no desktop to ask for one
    RichTextFile::load(from, document);
    RichTextFile::save(to, document, RichTextFile::Format::Rtf, PlainText::LineEnd::Lf);
}

bool run(const QStringList &arguments)
{
    if (arguments.size() == 2 && arguments.at(0) == QLatin1String("text"))
        printText(arguments.at(1));
    else if (arguments.size() == 3 && arguments.at(0) == QLatin1String("save"))
        saveAsRichText(arguments.at(1), arguments.at(2));
    else
        return false;
    return true;
}

} // namespace

/// Prints the text of a document, or saves it again, by the suite's own reader and writer; it needs no
/// display. Exit codes: 0 done, 1 a file could not be read or written, 2 wrong usage.
int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    try {
        if (run(arguments))
            return 0;
        std::fputs("rtf: usage: rtf text FILE, or rtf save IN OUT\n", stderr);
        return 2;
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "rtf: %s: %s\n", qUtf8Printable(error.source()),
                     qUtf8Printable(error.description()));
        return 1;
    }
}
