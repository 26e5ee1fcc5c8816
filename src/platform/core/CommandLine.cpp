#include "CommandLine.h"

#include "FileNames.h"

#include <QStringList>

namespace {

QString kept;

} // namespace

QString CommandLine::text()
{
    return kept;
}

void CommandLine::take(int argc, const char *const *argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << FileNames::fromBytes(argv[i]);
    kept = arguments.join(u' ');
}
