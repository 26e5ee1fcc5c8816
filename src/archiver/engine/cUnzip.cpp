#include "cUnzip.h"

#include "ArchiveTexts.h"
#include "FileNames.h"
#include "RuntimeError.h"
#include "UZPVER.h"
#include "UnzipLibrary.h"
#include "mUnzip.h"

#include <algorithm>

namespace {

/// Most files have the folder and the method of the one before: one copy is enough for all of them.
void share(QString &text, const QString &other)
{
    if (text == other)
        text = other;
}

} // namespace

cUnzip::cUnzip(QObject *parent)
    : QObject(parent)
{}

void cUnzip::addRecord(ArchiveRecord file)
{
    if (!m_files.empty()) {
        share(file.Folder, m_files.back().Folder);
        share(file.Method, m_files.back().Method);
    }
    m_files.push_back(std::move(file));
}

const ArchiveRecord &cUnzip::record(int i) const
{
    if (i < 1 || i > FileCount())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return m_files[std::size_t(i) - 1];
}

qint32 cUnzip::FilePackedSize(int i) const
{
    return qint32(qint64(record(i).Size) * record(i).Factor / 100);
}

void cUnzip::setFileSelected(int i, bool value)
{
    const_cast<ArchiveRecord &>(record(i)).Selected = value;
}

void cUnzip::setZipFile(const QString &path)
{
    m_zipFile = path;
    m_files.clear();
}

int cUnzip::Directory()
{
    m_options.lpszZipFN = FileNames::toBytes(m_zipFile);
    m_options.lpszExtractDir = QByteArray(1, '\0');
    m_options.nvflag = 1;
    return mUnzip::VBUnzip(*this, m_options, {}, {});
}

bool cUnzip::unzip()
{
    if (m_zipFile.isEmpty())
        return false;
    const QStringList names = selectedNames();
    m_options.lpszZipFN = FileNames::toBytes(m_zipFile);
    m_options.lpszExtractDir = FileNames::toBytes(m_unzipFolder);
    m_options.nvflag = 0;
    return mUnzip::VBUnzip(*this, m_options, names, {}) != UnzipResult::Success;
}

/// Empty where all are selected, so that the library also extracts what the table leaves out.
QStringList cUnzip::selectedNames() const
{
    if (std::all_of(m_files.cbegin(), m_files.cend(),
                    [](const ArchiveRecord &file) { return file.Selected; }))
        return {};
    QStringList names;
    for (const ArchiveRecord &file : m_files) {
        if (!file.Selected)
            continue;
        const QString path = file.Folder.isEmpty() ? file.Name : file.Folder + u'/' + file.Name;
        names.append(QString(path).replace(u'\\', u'/'));
    }
    return names;
}

void cUnzip::GetVersion(int &major, int &minor, int &revision, QString &beta) const
{
    UZPVER version;
    UzpVersion2(version);
    major = version.windll[0];
    minor = version.windll[1];
    revision = version.windll[2];
    beta = ArchiveTexts::text(ArchiveTexts::untilNul(version.beta));
}
