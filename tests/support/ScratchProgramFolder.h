#pragma once

#include "ScratchFolder.h"

/// An empty folder in the place of the program's folder, for one test that writes the suite's data files.
class ScratchProgramFolder : public ScratchFolder
{
public:
    ScratchProgramFolder();
    ~ScratchProgramFolder();
};
