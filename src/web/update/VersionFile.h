#pragma once

#include <QList>
#include <QString>
#include <array>

/// The update server's file "version.dat": the version that it offers, and a message to the user.
class VersionFile
{
public:
    static constexpr int mostRecords = 11;

    /// The fields of the version record.
    struct ServerVersion
    {
        QString product;
        QString maker;
        QString major;
        QString minor;
        QString revision;

        /// Whether any of the three numbers is more than that of this program. The numbers are not ranked.
        bool isNew() const;
    };

    /// Reads \a bytes, Windows-1252. Throws RuntimeError 9 for more than `mostRecords` records, and for less
    /// than two: there is no version record then; 62 for an incomplete last one.
    explicit VersionFile(const QByteArray &bytes);

    /// The last record but one.
    ServerVersion version() const;
    /// The three lines of the message, each with a line end; empty unless the file has it shown with a new
    /// version.
    QString messageIfNew() const { return messageIf(3); }
    /// The same for a version that is up to date.
    QString messageIfUpToDate() const { return messageIf(4); }

private:
    using Record = std::array<QString, 5>;

    QString messageIf(int field) const;

    QList<Record> m_records;
};
