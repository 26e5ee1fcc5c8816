#include "OverwriteReply.h"

#include "Prompts.h"
#include "USERFUNCTION.h"

int OverwriteReply::of(int response, bool applyToAll)
{
    if (response == MsgBoxReply::Yes)
        return applyToAll ? OverwriteAnswer::All : OverwriteAnswer::Yes;
    if (response == MsgBoxReply::No && !applyToAll)
        return OverwriteAnswer::No;
    return OverwriteAnswer::None;
}
