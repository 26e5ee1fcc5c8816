#pragma once

#include <QtGlobal>

namespace Kills {

/// How many times a test kills a process that saves: \a usual, or what the variable QUILL_KILLS says.
inline int count(int usual)
{
    bool isNumber = false;
    const int kills = qEnvironmentVariableIntValue("QUILL_KILLS", &isNumber);
    return isNumber ? kills : usual;
}

} // namespace Kills
