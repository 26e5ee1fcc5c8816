#include "mUnzip.h"

#include "ArchiveTexts.h"
#include "FileNames.h"
#include "Paths.h"
#include "RuntimeError.h"
#include "UnzipLibrary.h"
#include "cUnzip.h"

#include <memory>

namespace {

constexpr qsizetype nameBytes = 256; // of the name that a callback gets

/// One job, as its callbacks know it.
struct UnzipState
{
    cUnzip &object;
    bool isCancelled = false; ///< a password request had no answer
};

QString pathOf(QByteArrayView name)
{
    const QByteArray bytes = ArchiveTexts::untilNul(name.first(qMin(name.size(), nameBytes)));
    return ArchiveTexts::withBackslashes(ArchiveTexts::text(bytes));
}

int print(const UnzipState &job, QByteArrayView text)
{
    if (ArchiveTexts::isHeard(text))
        Q_EMIT job.object.Progress(1, ArchiveTexts::withBackslashes(ArchiveTexts::text(text)));
    return 0;
}

int replace(const UnzipState &job, QByteArrayView name)
{
    int answer = OverwriteAnswer::No;
    Q_EMIT job.object.OverwritePrompt(pathOf(name), answer);
    return answer;
}

int password(UnzipState &job, std::span<char> buffer)
{
    constexpr qsizetype mostBytes = 254;
    if (job.isCancelled)
        return 1;
    QString answer;
    bool cancel = false;
    Q_EMIT job.object.PasswordRequest(answer, cancel);
    const QByteArray bytes = FileNames::toBytes(answer.trimmed());
    if (bytes.isEmpty() || cancel) {
        job.isCancelled = true;
        return 1;
    }
    ArchiveTexts::fill(buffer, bytes.left(qMin(mostBytes, qsizetype(buffer.size()) - 1)));
    return 0;
}

int service(const UnzipState &job, QByteArrayView name)
{
    if (!ArchiveTexts::isHeard(name))
        return 0;
    bool cancel = false;
    const QString text = ArchiveTexts::text(ArchiveTexts::untilNul(name));
    Q_EMIT job.object.Cancel(ArchiveTexts::withBackslashes(text), cancel);
    return cancel ? 1 : 0;
}

/// Intended: the day of the month is the hour, so that hour 0 gives the last day of the month before.
QDate dayOf(const ListedEntry &entry)
{
    return QDate(entry.yr, qBound(1, entry.mo, 12), 1).addDays(entry.hh - 1);
}

void message(const UnzipState &job, const ListedEntry &entry)
{
    constexpr char encryptedBit = 1 << 6;
    const QString path = pathOf(entry.fname);
    const qsizetype separator = path.lastIndexOf(u'\\');
    ArchiveRecord record;
    record.Name = path.sliced(separator + 1);
    if (record.Name.isEmpty())
        return;
    record.Folder = path.left(qMax<qsizetype>(separator, 0));
    record.Size = entry.csiz;
    record.Factor = entry.cfactor;
    record.Method = ArchiveTexts::text(ArchiveTexts::untilNul(entry.meth));
    record.Day = dayOf(entry);
    record.Time = QTime(qMin(entry.hh, 23), qMin(entry.mm, 59));
    record.CRC = entry.crc;
    record.Encrypted = entry.fCrypt & encryptedBit;
    job.object.addRecord(std::move(record));
}

NameList namesOf(const QStringList &texts)
{
    NameList names;
    for (const QString &text : texts)
        names.append(FileNames::toBytes(text));
    return names;
}

} // namespace

int mUnzip::VBUnzip(cUnzip &object, const DCLIST &options, const QStringList &included,
                    const QStringList &excluded)
{
    try {
        return Wiz_SingleEntryUnzip(namesOf(included), namesOf(excluded), options, callbacksOf(object));
    } catch (const RuntimeError &error) {
        throw RuntimeError(error.number(), error.description(),
                           Paths::applicationTitle + QStringLiteral(".VBUnzip"));
    }
}

USERFUNCTION mUnzip::callbacksOf(cUnzip &object)
{
    const auto job = std::make_shared<UnzipState>(UnzipState{object});
    return {[job](QByteArrayView text) { return print(*job, text); },
            [job](QByteArrayView name) { return replace(*job, name); },
            [job](std::span<char> buffer) { return password(*job, buffer); },
            [job](const ListedEntry &entry) { message(*job, entry); },
            [job](QByteArrayView name) { return service(*job, name); }};
}
