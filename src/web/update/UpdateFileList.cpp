#include "UpdateFileList.h"

#include "Numbers.h"
#include "UpdateRecords.h"

bool UpdateFile::hasSize(qint64 bytes) const
{
    return double(bytes) == Numbers::leadingNumber(size);
}

QList<UpdateFile> UpdateFileList::read(const QByteArray &bytes)
{
    constexpr std::size_t fields = 3; // the second one has no use
    QList<UpdateFile> files;
    for (const auto &record : UpdateRecords::read<fields>(bytes, mostRecords))
        files.append({record[0], record[2]});
    return files;
}
