#pragma once

#include "cMRU.h"

/// What the unzip window keeps in the registry: two options and two lists of recent items.
class UnzipSettings
{
public:
    /// From the machine's key, or from the user's where the machine has none. Never fails; what is absent is
    /// false or empty.
    void read();
    /// To the user's key and then to the machine's. What cannot be written is left out.
    void write() const;

    bool UseFolderNames = false;
    bool OverwritePrompt = false;
    cMRU ExtractToMRU; ///< folders
    cMRU FileOpenMRU;  ///< archives

private:
    void writeBelow(qint32 root) const;
};
