#include "ArchiveRows.h"

#include "FileIcons.h"
#include "cUnzip.h"

namespace {

int recordOf(int row)
{
    return row + 1;
}

} // namespace

ArchiveRows::ArchiveRows(const cUnzip &archive, FileIcons &icons)
    : m_archive(archive)
    , m_icons(icons)
    , m_count(archive.FileCount())
{}

QString ArchiveRows::key(int row) const
{
    return QStringLiteral("File") + QString::number(recordOf(row));
}

QString ArchiveRows::text(int row, int column) const
{
    const int record = recordOf(row);
    switch (column) {
    case 0:
        return name(record);
    case 1:
        return QString::number(m_archive.FileSize(record));
    case 2:
        return m_dates.text(m_archive.FileDate(record));
    case 3:
        return QString::number(m_archive.FilePackedSize(record));
    default:
        return m_archive.FileDirectory(record);
    }
}

QString ArchiveRows::name(int record) const
{
    const QString name = m_archive.FileName(record);
    return m_archive.FileEncrypted(record) ? u'+' + name : name;
}

QIcon ArchiveRows::icon(int row) const
{
    return m_icons.icon(m_icons.keyOf(m_archive.FileName(recordOf(row))));
}
