#pragma once

#include "WmfRecord.h"

#include <optional>

/// The commands of a metafile, one after the other.
class WmfRecordList
{
public:
    /// \a bytes are what follows the file's headers.
    explicit WmfRecordList(QByteArrayView bytes)
        : m_left(bytes)
    {}

    /// Empty at the end of the list, and where the bytes are no record.
    std::optional<WmfRecord> next();
    /// Whether the last record that next() gave is not followed by the mark of the list's end.
    bool isDamaged() const { return m_isDamaged; }

private:
    QByteArrayView m_left;
    bool m_isDamaged = false;
};
