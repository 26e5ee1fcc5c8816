#pragma once

#include "ListRows.h"
#include "ShortDateTimes.h"

class FileIcons;
class cUnzip;

/// The table of an archive as rows of a list, in its order: name, size, date, packed size, folder. The key of
/// a row is "File" and the number of its record. An encrypted file has "+" before its name.
class ArchiveRows : public ListRows
{
public:
    /// \a archive and \a icons have to exist, and the table has to stay, while rows are read.
    ArchiveRows(const cUnzip &archive, FileIcons &icons);

    int count() const override { return m_count; }
    QString key(int row) const override;
    QString text(int row, int column) const override;
    QIcon icon(int row) const override;

private:
    QString name(int record) const;

    const cUnzip &m_archive;
    FileIcons &m_icons;
    int m_count;
    mutable ShortDateTimes m_dates;
};
