#pragma once

#include <QString>

struct DCLIST;

/// Unpacks a whole archive, without events: a plainer companion of cUnzip.
///
/// Paths are native and as FileNames has them. All options are false and the message level 0 at first.
class CGUnzipFiles
{
public:
    bool ExtractNewer = false; ///< files that are not older than their entries stay
    bool SpaceToUnderScore = false;
    bool PromptOverwrite = false; ///< nobody is asked: files that exist stay without OverWriteFiles
    int MessageLevel = 0;
    bool WriteToStdOut = false; ///< the files are not written, but become messages
    bool TestZip = false;
    bool ExtractList = false;      ///< lists instead of extracting
    bool ExtractOnlyNewer = false; ///< as ExtractNewer
    bool DisplayComment = false;
    bool HonorDirectories = false; ///< makes the folders of the archive; else all files come into ExtractDir
    bool OverWriteFiles = false;
    bool ConvertCRtoCRLF = false;
    bool Verbose = false;
    bool CaseSensitive = false;
    bool Privilege = false;
    QString ZipFileName;
    QString ExtractDir;

    /// Unpacks the archive and returns a UnzipResult. A non-empty \a archive replaces ZipFileName, a
    /// non-empty \a folder ExtractDir.
    int unzip(const QString &archive = {}, const QString &folder = {});

    /// The last message of the last run.
    QString GetLastMessage() const { return m_lastMessage; }

private:
    DCLIST options() const;

    QString m_lastMessage;
};
