#include "ComingCommands.h"

#include "Ask.h"

void ComingCommands::announce()
{
    Ask(QStringLiteral("This command is not in this version yet."), MsgBoxStyle::Information);
}
