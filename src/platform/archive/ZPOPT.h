#pragma once

#include <QByteArray>

/// The options of the zip library. Numbers are 0 for no and 1 for yes unless said otherwise.
struct ZPOPT
{
    QByteArray szRootDir;   ///< the caller has made it the current folder already
    int fEncrypt = 0;       ///< asks for a password
    int fSystem = 0;        ///< patterns take hidden files too
    int fVolume = 0;        ///< stores the label of the volume of the current folder, where it has one
    int fNoDirEntries = 0;  ///< leaves out entries for folders
    int fVerbose = 0;       ///< messages with sizes
    int fQuiet = 0;         ///< only warnings
    int fCRLF_LF = 0;       ///< in text files
    int fLF_CRLF = 0;       ///< in text files
    int fJunkDir = 0;       ///< leaves the folders out of the names
    int fGrow = 0;          ///< an archive that exists is updated with and without it, always as a new file
    int fDeleteEntries = 0; ///< the names are those of entries, or patterns, to be removed
    int fUpdate = 0;        ///< takes files that are new or newer than their entries
    int fFreshen = 0;       ///< takes files that are newer than their entries
    int fComment = 0;       ///< asks for a comment of the archive
    int fRecurse = 0; ///< 1: folders with all below; 2: names are patterns for all below the current folder
    int flevel = 0;   ///< 1 to 9; 0 for the library's own
};
