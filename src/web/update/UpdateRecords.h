#pragma once

#include "FieldReader.h"
#include "PlainText.h"
#include "RuntimeError.h"

#include <QList>
#include <array>

/// The records of the update server's text files.
namespace UpdateRecords {

/// The fields of \a bytes, Windows-1252, \a Fields to a record, whatever its lines are. Throws RuntimeError 9
/// for more than \a most records, 62 where the last one is incomplete.
template<std::size_t Fields>
QList<std::array<QString, Fields>> read(const QByteArray &bytes, int most)
{
    QList<std::array<QString, Fields>> records;
    for (FieldReader reader(PlainText::fromWindows1252(bytes)); !reader.atEnd();) {
        std::array<QString, Fields> record;
        for (QString &field : record) {
            if (reader.atEnd())
                throw RuntimeError(ErrorNumber::InputPastEnd);
            field = reader.next();
        }
        if (records.size() == most)
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        records.append(record);
    }
    return records;
}

} // namespace UpdateRecords
