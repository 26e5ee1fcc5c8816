#include "ScratchGlobals.h"

#include "Globals.h"

void ScratchGlobals::reset()
{
    mainFrame = nullptr;
    showSplash = 0;
    freshDocument = false;
    lastAnswer.clear();
    diallerMode.clear();
}
