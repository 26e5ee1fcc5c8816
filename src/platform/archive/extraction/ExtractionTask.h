#pragma once

#include "ArchiveEntry.h"
#include "PackedData.h"
#include "PendingFile.h"
#include "TargetFolder.h"

#include <functional>
#include <memory>

/// The extraction of one entry.
struct ExtractionTask
{
    const ArchiveEntry *entry = nullptr;
    qint64 dataOffset = 0;                 ///< in the archive's file
    std::shared_ptr<PackedData> data = {}; ///< where that is not simply what is at the offset
    bool isUnpacked = false;               ///< the data
    QByteArray path;                       ///< below the target, for messages
    QByteArray name;
    TargetFolder::Folder folder;                ///< without one the data is not written, but handed to output
    std::function<void(QByteArrayView)> output; ///< may be empty: the data is only checked
    PendingFile::Existing existing = PendingFile::Existing::Keep;
    mode_t ordinaryMode = 0600; ///< where the entry has no permissions
    bool convertsReturns = false;
};
