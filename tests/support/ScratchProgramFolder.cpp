#include "ScratchProgramFolder.h"

#include "Paths.h"

ScratchProgramFolder::ScratchProgramFolder()
{
    Paths::setAppPath(path());
}

ScratchProgramFolder::~ScratchProgramFolder()
{
    Paths::setAppPath({});
}
