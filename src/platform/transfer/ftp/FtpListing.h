#pragma once

#include <QByteArray>
#include <QString>

/// The rows of a folder, from what a server sends to list it: a name for each entry, a folder's with "/"
/// behind it. Lines that are no entry give no row.
class FtpListing
{
public:
    enum class Format {
        Machine, ///< MLSD
        Free,    ///< LIST: as Unix, DOS or EPLF
    };

    static constexpr qsizetype mostBytes = 64 * 1024 * 1024; ///< of a listing
    static constexpr qsizetype mostRows = 1'000'000;
    static constexpr qsizetype longestLine = 65536; ///< a longer one is no entry

    explicit FtpListing(Format format)
        : m_format(format)
    {}

    /// The next part. Throws TransferFailure 12152 where the listing is too long.
    void add(QByteArrayView bytes);

    /// The rows of all parts, each with CR LF behind it. Nothing can be added afterwards.
    QString finish();

private:
    void addLine(QByteArrayView line);

    Format m_format;
    QByteArray m_rest; ///< the beginning of a line
    bool m_skipsRest = false;
    qsizetype m_size = 0;
    qsizetype m_count = 0;
    QString m_rows;
};
