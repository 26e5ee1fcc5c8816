#pragma once

/// The public globals as a process finds them at its start, before a test and after it.
class ScratchGlobals
{
public:
    ScratchGlobals() { reset(); }
    ~ScratchGlobals() { reset(); }
    ScratchGlobals(const ScratchGlobals &) = delete;
    ScratchGlobals &operator=(const ScratchGlobals &) = delete;

private:
    static void reset();
};
