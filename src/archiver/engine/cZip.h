#pragma once

#include "ZPOPT.h"

#include <QObject>
#include <QStringList>

/// Makes and updates zip archives: a record of options, a list of file specifications, and one call that runs
/// the whole job. Properties keep their values from job to job. Only one job of any cZip runs at a time.
///
/// Paths are native and as FileNames has them. The class has no window and shows no message.
class cZip : public QObject
{
    Q_OBJECT

public:
    explicit cZip(QObject *parent = nullptr);

    /// The archive. It is made where it is missing, else updated.
    QString ZipFile() const { return m_zipFile; }
    void setZipFile(const QString &path) { m_zipFile = path; }
    /// The folder that relative specifications are in. Unless it is blank, a job makes it the current folder
    /// of the process, and it stays that.
    QString BasePath() const;
    void setBasePath(const QString &path);

    /// Asks for a password by PasswordRequest, twice.
    bool Encrypt() const { return m_options.fEncrypt != 0; }
    void setEncrypt(bool value) { m_options.fEncrypt = value; }
    /// Asks for a comment by CommentRequest.
    /// Intended: reading gives false and assigns the value to Encrypt.
    bool AddComment();
    void setAddComment(bool value) { m_options.fComment = value; }
    /// Patterns find hidden files too.
    bool IncludeSystemAndHiddenFiles() const { return m_options.fSystem != 0; }
    void setIncludeSystemAndHiddenFiles(bool value) { m_options.fSystem = value; }
    bool StoreVolumeLabel() const { return m_options.fVolume != 0; }
    void setStoreVolumeLabel(bool value) { m_options.fVolume = value; }
    bool ConvertCRLFToLF() const { return m_options.fCRLF_LF != 0; }
    void setConvertCRLFToLF(bool value) { m_options.fCRLF_LF = value; }
    bool ConvertLFToCRLF() const { return m_options.fLF_CRLF != 0; }
    void setConvertLFToCRLF(bool value) { m_options.fLF_CRLF = value; }
    bool UpdateOnlyIfNewer() const { return m_options.fUpdate != 0; }
    void setUpdateOnlyIfNewer(bool value) { m_options.fUpdate = value; }
    /// Entries for folders. False at first.
    /// Intended: reading gives the opposite of what was written.
    bool StoreDirectories() const { return m_options.fNoDirEntries != 0; }
    void setStoreDirectories(bool value) { m_options.fNoDirEntries = !value; }
    /// Names with their folders. False at first.
    bool StoreFolderNames() const { return m_options.fJunkDir == 0; }
    void setStoreFolderNames(bool value) { m_options.fJunkDir = !value; }
    /// Specifications are patterns for all that is below the current folder. False at first.
    bool RecurseSubDirs() const { return m_options.fRecurse != 0; }
    void setRecurseSubDirs(bool value);
    /// Intended: reading gives an option that nothing sets; writing sets UpdateOnlyIfNewer.
    bool FreshenFiles() const { return m_options.fFreshen != 0; }
    void setFreshenFiles(bool value) { m_options.fUpdate = value; }
    /// 0 all messages, 1 quiet, 2 normal. Other values change nothing.
    int MessageLevel() const;
    void setMessageLevel(int level);
    bool AllowAppend() const { return m_options.fGrow == 1; }
    void setAllowAppend(bool value) { m_options.fGrow = value; }

    void ClearFileSpecs() { m_fileSpecs.clear(); }
    /// Returns 0.
    int AddFileSpec(const QString &spec);
    int FileSpecCount() const { return int(m_fileSpecs.size()); }
    /// \a index begins with 1. Throws RuntimeError 9 outside of the list.
    QString FileSpec(int index) const;

    /// Runs the job and returns when it is over; the signals come meanwhile. Success says how it went.
    /// Throws RuntimeError: 9 for more than 1,023 specifications, 76 or 70 for a BasePath that cannot be the
    /// current folder.
    void zip();
    bool Success() const { return m_result == 0; }
    /// Removes the entries that the specifications name from the archive. Success stays as it was. Throws as
    /// zip().
    void Delete();

Q_SIGNALS:
    // All of them come during zip() and Delete(). A handler may run pending events; it may not delete the
    // object.

    /// Between any two pieces of work, with the name at work; \a bCancel ends the job, with the archive as it
    /// was.
    void Cancel(const QString &sMsg, bool &bCancel);
    /// A password of at most \a lMaxPasswordLength bytes is needed, with \a bConfirm a second time. An empty
    /// one, or \a bCancel, cancels the job.
    void PasswordRequest(QString &sPassword, int lMaxPasswordLength, bool bConfirm, bool &bCancel);
    /// A comment, of which the first 254 bytes are stored. With an empty one, or \a bCancel, the archive
    /// keeps the comment that it has.
    void CommentRequest(QString &sComment, bool &bCancel);
    /// A message; \a lCount is always 1.
    void Progress(int lCount, const QString &sMsg);

private:
    int run();

    QString m_zipFile;
    ZPOPT m_options;
    QStringList m_fileSpecs;
    int m_result = 0;
};
