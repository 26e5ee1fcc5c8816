#include "ZipLibrary.h"

#include "ZipJob.h"

#include <QScopedValueRollback>

namespace {

ZIPUSERFUNCTIONS userFunctions;
ZPOPT nextOptions;

} // namespace

void ZpInit(const ZIPUSERFUNCTIONS &functions)
{
    userFunctions = functions;
}

void ZpSetOptions(const ZPOPT &options)
{
    nextOptions = options;
}

int ZpArchive(const QByteArray &archive, const NameList &names)
{
    static bool isRunning = false;
    if (isRunning)
        return ZipResult::Internal;
    const QScopedValueRollback running(isRunning, true);
    return ZipJob(archive, names.names(), nextOptions, userFunctions).run();
}
