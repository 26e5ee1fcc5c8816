#pragma once

#include "EntryReader.h"
#include "ExtractedFile.h"
#include "ExtractionTask.h"

/// Extracts entries, one after the other. Each thread has its own, which keeps the buffers.
class EntryExtraction
{
public:
    /// \a data is that of the entry. \a betweenPieces is called before each piece; what it throws ends the
    /// extraction. Returns the file, finished but not published yet, unless the task has none. Throws
    /// BadArchive and FileFailure.
    std::unique_ptr<ExtractedFile> run(const ExtractionTask &task, PackedData &data,
                                       const std::function<void()> &betweenPieces);

private:
    void write(const ExtractionTask &task, const std::function<void(QByteArrayView)> &output,
               const std::function<void()> &betweenPieces);

    EntryReader m_reader;
};
