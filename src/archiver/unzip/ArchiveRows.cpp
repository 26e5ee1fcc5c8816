#include "ArchiveRows.h"

#include "FileIcons.h"
#include "ShortDateTimes.h"
#include "cUnzip.h"

namespace {

constexpr int rowsAtOnce = 256;
const QString keyPrefix = QStringLiteral("File");

} // namespace

std::vector<ListItem> ArchiveRows::of(const cUnzip &archive, FileIcons &icons,
                                      const std::function<bool()> &goesOn)
{
    std::vector<ListItem> rows;
    rows.reserve(std::size_t(archive.FileCount()));
    ShortDateTimes dates;
    for (int i = 1; i <= archive.FileCount(); ++i) {
        if (i % rowsAtOnce == 0 && !goesOn())
            break;
        const QString name = archive.FileName(i);
        ListItem row;
        row.Key = keyPrefix + QString::number(i);
        row.Text = archive.FileEncrypted(i) ? u'+' + name : name;
        row.Icon = icons.icon(icons.keyOf(name));
        row.SubItems = {QString::number(archive.FileSize(i)), dates.text(archive.FileDate(i)),
                        QString::number(archive.FilePackedSize(i)), archive.FileDirectory(i)};
        rows.push_back(std::move(row));
    }
    return rows;
}

int ArchiveRows::recordOf(const QString &key)
{
    return key.sliced(keyPrefix.size()).toInt();
}
