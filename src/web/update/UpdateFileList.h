#pragma once

#include <QList>
#include <QString>

/// One file that an update consists of.
struct UpdateFile
{
    QString name;
    QString size; ///< of the file in bytes, in decimal

    /// Whether a file of \a bytes has the size.
    bool hasSize(qint64 bytes) const;
};

namespace UpdateFileList {

inline constexpr int mostRecords = 101;

/// The files that the update server's "updatefilelist.dat" lists. Throws RuntimeError 9 for more than
/// `mostRecords`, 62 for an incomplete last one.
QList<UpdateFile> read(const QByteArray &bytes);

} // namespace UpdateFileList
