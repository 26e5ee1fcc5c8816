#include "MountainEcho.h"

QString MountainEcho::answer(const QString &call)
{
    bool again = false;
    Q_EMIT heard(call, again);
    return again ? call + u' ' + call : call;
}
