#include "UnzipLibrary.h"

#include "UnzipJob.h"
#include "Version.h"

#include <QScopedValueRollback>

int Wiz_SingleEntryUnzip(const NameList &included, const NameList &excluded, const DCLIST &options,
                         const USERFUNCTION &functions)
{
    static bool isRunning = false;
    if (isRunning)
        return UnzipResult::BadParameters;
    const QScopedValueRollback running(isRunning, true);
    return UnzipJob(included.names(), excluded.names(), options, functions).run();
}

void UzpVersion2(UZPVER &version)
{
    version.beta = QByteArray(1, '\0');
    version.windll = {Version::major, Version::minor, Version::revision, 0};
}
