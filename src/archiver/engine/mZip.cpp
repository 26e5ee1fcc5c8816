#include "mZip.h"

#include "ArchiveTexts.h"
#include "FileNames.h"
#include "RuntimeError.h"
#include "ZipLibrary.h"
#include "cZip.h"

#include <QScopedValueRollback>
#include <cerrno>
#include <memory>
#include <unistd.h>

namespace {

/// One job, as its callbacks know it.
struct ZipState
{
    cZip &object;
    bool isCancelled = false;  ///< some request had no answer
    bool isConfirming = false; ///< the next password is the first one again
};

int print(const ZipState &job, QByteArrayView text)
{
    if (ArchiveTexts::isHeard(text)) {
        const QString message = ArchiveTexts::text(ArchiveTexts::untilNul(text));
        Q_EMIT job.object.Progress(1, ArchiveTexts::withBackslashesUnlessFirst(message));
    }
    return 0;
}

int service(ZipState &job, QByteArrayView name)
{
    if (!ArchiveTexts::isHeard(name))
        return 0;
    bool cancel = false;
    const QString text = ArchiveTexts::text(ArchiveTexts::untilNul(name));
    Q_EMIT job.object.Cancel(ArchiveTexts::withBackslashesUnlessFirst(text), cancel);
    if (cancel)
        job.isCancelled = true;
    return cancel ? 1 : 0;
}

void comment(ZipState &job, CommentBuffer &buffer)
{
    constexpr qsizetype mostBytes = 254;
    buffer[0] = '\0';
    if (job.isCancelled)
        return;
    QString text;
    bool cancel = false;
    Q_EMIT job.object.CommentRequest(text, cancel);
    if (text.isEmpty() || cancel) {
        job.isCancelled = true;
        return;
    }
    ArchiveTexts::fill(buffer, ArchiveTexts::cut(FileNames::toBytes(text), mostBytes));
}

int password(ZipState &job, std::span<char> buffer)
{
    if (job.isCancelled)
        return 1;
    QString answer;
    bool cancel = false;
    Q_EMIT job.object.PasswordRequest(answer, int(buffer.size()), job.isConfirming, cancel);
    const QByteArray bytes = FileNames::toBytes(answer.trimmed());
    if (bytes.isEmpty() || cancel) {
        job.isCancelled = true;
        return 1;
    }
    ArchiveTexts::fill(buffer, bytes);
    job.isConfirming = true;
    return 0;
}

void enterBasePath(const QByteArray &path)
{
    if (!path.trimmed().isEmpty() && ::chdir(path.constData()) != 0)
        throw RuntimeError::fromErrno(errno == ENOENT ? ENOTDIR : errno, FileNames::fromBytes(path));
}

} // namespace

int mZip::VBZip(cZip &object, const QString &zipFile, const ZPOPT &options, const QStringList &fileSpecs)
{
    static bool isRunning = false;
    if (isRunning)
        return ZipResult::Internal; // before the current folder of the other job changes
    const QScopedValueRollback running(isRunning, true);
    enterBasePath(options.szRootDir);
    ZpInit(callbacksOf(object));
    ZpSetOptions(options);
    NameList names;
    for (const QString &spec : fileSpecs)
        names.append(FileNames::toBytes(spec));
    return ZpArchive(FileNames::toBytes(zipFile), names);
}

ZIPUSERFUNCTIONS mZip::callbacksOf(cZip &object)
{
    const auto job = std::make_shared<ZipState>(ZipState{object});
    return {[job](QByteArrayView text) { return print(*job, text); },
            [job](CommentBuffer &buffer) { comment(*job, buffer); },
            [job](std::span<char> buffer) { return password(*job, buffer); },
            [job](QByteArrayView name) { return service(*job, name); }};
}
