#include "VersionFile.h"

#include "Numbers.h"
#include "UpdateRecords.h"
#include "Version.h"

namespace {

constexpr int messageRecord = 1;

} // namespace

VersionFile::VersionFile(const QByteArray &bytes)
    : m_records(UpdateRecords::read<std::tuple_size_v<Record>>(bytes, mostRecords))
{
    if (m_records.size() < 2)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

VersionFile::ServerVersion VersionFile::version() const
{
    const Record &record = m_records.at(m_records.size() - 2);
    return {record[0], record[1], record[2], record[3], record[4]};
}

bool VersionFile::ServerVersion::isNew() const
{
    // Intended: 1.9.9 is new to 2.0.1.
    return Version::revision < Numbers::leadingNumber(revision) ||
           Version::minor < Numbers::leadingNumber(minor) || Version::major < Numbers::leadingNumber(major);
}

QString VersionFile::messageIf(int field) const
{
    const Record &record = m_records.at(messageRecord);
    if (record[field] != QLatin1String("Y"))
        return {};
    const QString line = QStringLiteral("\r\n");
    return record[0] + line + record[1] + line + record[2] + line;
}
