#include "Files.h"
#include "HelpDocument.h"
#include "HelpError.h"
#include "HelpSource.h"
#include "RichTextFile.h"
#include "RuntimeError.h"

#include <QFile>
#include <QTextDocument>
#include <cstdio>

namespace {

void make(const QString &source, const QString &out)
{
    QTextDocument document;
    HelpDocument::fill(document, HelpSource::read(QString::fromUtf8(Files::read(source))),
                       source.section(u'/', 0, -2, QString::SectionIncludeTrailingSep) + QStringLiteral("."));
    RichTextFile::save(out, document, RichTextFile::Format::Rtf, PlainText::LineEnd::Lf);
}

} // namespace

/// Makes a help document from its source, with its pictures: a step of the build.
int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("make-help SOURCE OUT\n", stderr);
        return 2;
    }
    const QString source = QFile::decodeName(argv[1]);
    try {
        make(source, QFile::decodeName(argv[2]));
    } catch (const HelpError &error) {
        std::fprintf(stderr, "%s:%d: %s\n", argv[1], error.line, qUtf8Printable(error.text));
        return 1;
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(error.source()), qUtf8Printable(error.description()));
        return 1;
    }
    return 0;
}
