#include "UnlessLocked.h"

#include "Ask.h"
#include "DataError.h"

bool unlessLocked(const std::function<void()> &step)
{
    try {
        step();
        return true;
    } catch (const RuntimeError &error) {
        if (!DataError::isLocked(error))
            throw;
    }
    Ask(QStringLiteral("Another program is using the address database. Please try again."),
        MsgBoxStyle::Exclamation);
    return false;
}
