#pragma once

#include <QByteArray>

/// The options of the unzip library. Numbers are 0 for no and 1 for yes unless said otherwise.
struct DCLIST
{
    int ExtractOnlyNewer = 0;  ///< leaves files that are not older than their entries
    int SpaceToUnderScore = 0; ///< in the names of extracted files
    int PromptToOverwrite = 0; ///< asks about files that exist; they stay with this and noflag both 0
    int fQuiet = 0;            ///< 0 all messages, 1 few, 2 none
    int ncflag = 0;            ///< prints the files instead of writing them
    int ntflag = 0;            ///< only tests whether everything could be extracted
    int nvflag = 0;            ///< lists the entries
    int nUflag = 0;            ///< as ExtractOnlyNewer
    int nzflag = 0;            ///< prints the comment of the archive
    int ndflag = 0;            ///< makes the folders of the entries; else all files come into one
    int noflag = 0;            ///< overwrites files that exist
    int naflag = 0;            ///< turns each CR of a text file into CR LF
    int nZIflag = 0;           ///< accepted; listings are always complete
    int C_flag = 0;       ///< names differ by case; else one that no entry has is also found in another case
    int fPrivilege = 0;   ///< accepted; owners are never restored
    QByteArray lpszZipFN; ///< the archive, a native path
    QByteArray lpszExtractDir; ///< the target folder, a native path, made where it is missing
};
