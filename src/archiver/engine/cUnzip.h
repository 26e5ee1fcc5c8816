#pragma once

#include "ArchiveRecord.h"
#include "DCLIST.h"

#include <QObject>
#include <vector>

/// Lists an archive into a table of its files, lets the caller select some, and extracts them. Only one run
/// of any cUnzip or CGUnzipFiles goes on at a time.
///
/// Without any handler it can be used too: files that exist stay then, and encrypted ones are skipped.
///
/// Paths are native and as FileNames has them. The class has no window and shows no message. Names from
/// archives are text from outside.
class cUnzip : public QObject
{
    Q_OBJECT

public:
    explicit cUnzip(QObject *parent = nullptr);

    /// Files that are not older than their entries stay.
    bool ExtractOnlyNewer() const { return m_options.ExtractOnlyNewer != 0; }
    void setExtractOnlyNewer(bool value) { m_options.ExtractOnlyNewer = value; }
    bool SpaceToUnderScore() const { return m_options.SpaceToUnderScore != 0; }
    void setSpaceToUnderScore(bool value) { m_options.SpaceToUnderScore = value; }
    /// Asks by OverwritePrompt about files that exist. Without this and OverwriteExisting they stay.
    bool PromptToOverwrite() const { return m_options.PromptToOverwrite != 0; }
    void setPromptToOverwrite(bool value) { m_options.PromptToOverwrite = value; }
    /// 0 all messages, 1 few, 2 none.
    int MessageLevel() const { return m_options.fQuiet; }
    void setMessageLevel(int level) { m_options.fQuiet = level; }
    /// unzip() writes nothing, but only checks the files.
    bool TestZip() const { return m_options.ntflag != 0; }
    void setTestZip(bool value) { m_options.ntflag = value; }
    bool UseFolderNames() const { return m_options.ndflag != 0; }
    void setUseFolderNames(bool value) { m_options.ndflag = value; }
    bool OverwriteExisting() const { return m_options.noflag != 0; }
    void setOverwriteExisting(bool value) { m_options.noflag = value; }
    bool ConvertCRtoCRLF() const { return m_options.naflag != 0; }
    void setConvertCRtoCRLF(bool value) { m_options.naflag = value; }
    bool CaseSensitiveFileNames() const { return m_options.C_flag != 0; }
    void setCaseSensitiveFileNames(bool value) { m_options.C_flag = value; }

    // The table of the archive. Indices begin with 1; others throw RuntimeError 9.

    int FileCount() const { return int(m_files.size()); }
    QString FileName(int i) const { return record(i).Name; }
    QString FileDirectory(int i) const { return record(i).Folder; }
    /// The packed size in bytes, at most 2 GiB - 1.
    qint32 FileSize(int i) const { return record(i).Size; }
    int FileCompressionRatio(int i) const { return record(i).Factor; }
    /// Intended: FileSize times FileCompressionRatio divided by 100, though FileSize is packed already.
    qint32 FilePackedSize(int i) const;
    QDateTime FileDate(int i) const { return record(i).Date(); }
    quint32 FileCRC(int i) const { return record(i).CRC; }
    QString FileCompressionMethod(int i) const { return record(i).Method; }
    bool FileEncrypted(int i) const { return record(i).Encrypted; }
    /// True at first.
    bool FileSelected(int i) const { return record(i).Selected; }
    void setFileSelected(int i, bool value);

    /// Adds the files of the archive to the table. Returns a UnzipResult.
    int Directory();
    /// Extracts the files that are selected. With all of them selected it extracts everything, empty folders
    /// too. Returns true when it failed; without a ZipFile it does nothing and returns false. Throws
    /// RuntimeError 9 where some, but more than 1,023 files are selected; its source is ".VBUnzip" behind the
    /// application's title.
    bool unzip();

    /// Made where it is missing.
    QString UnzipFolder() const { return m_unzipFolder; }
    void setUnzipFolder(const QString &path) { m_unzipFolder = path; }
    QString ZipFile() const { return m_zipFile; }
    /// Empties the table, even when the name is the old one.
    void setZipFile(const QString &path);

    void GetVersion(int &major, int &minor, int &revision, QString &beta) const;

    /// Adds a record to the table; called by the callbacks of Directory().
    void addRecord(ArchiveRecord file);

Q_SIGNALS:
    // All of them come during Directory() and unzip(). A handler may run pending events; it may not delete
    // the object.

    /// Between any two pieces of work, with the name at work; \a bCancel ends the run. Files that are
    /// extracted already stay.
    void Cancel(const QString &sMsg, bool &bCancel);
    /// May the file \a sFile be overwritten? \a eResponse is an OverwriteAnswer, No at first.
    void OverwritePrompt(const QString &sFile, int &eResponse);
    /// A password is needed. With an empty one, or \a bCancel, encrypted files are skipped.
    void PasswordRequest(QString &sPassword, bool &bCancel);
    /// A message; \a lCount is always 1.
    void Progress(int lCount, const QString &sMsg);

private:
    const ArchiveRecord &record(int i) const;
    QStringList selectedNames() const;

    DCLIST m_options;
    QString m_zipFile;
    QString m_unzipFolder;
    std::vector<ArchiveRecord> m_files;
};
