#include "ExecutedCommands.h"

namespace {

ExecutedCommands *listener = nullptr;

} // namespace

class InternetTransfer;

// NOLINTBEGIN: the linker gives these names their meaning
void execute(InternetTransfer *session, const QString &address,
             const QString &command) asm("__real__ZN16InternetTransfer7ExecuteERK7QStringS2_");
void heardExecute(InternetTransfer *session, const QString &address,
                  const QString &command) asm("__wrap__ZN16InternetTransfer7ExecuteERK7QStringS2_");
// NOLINTEND

void heardExecute(InternetTransfer *session, const QString &address, const QString &command)
{
    if (listener)
        listener->note(command);
    execute(session, address, command);
}

ExecutedCommands::ExecutedCommands()
{
    listener = this;
}

ExecutedCommands::~ExecutedCommands()
{
    listener = nullptr;
}
