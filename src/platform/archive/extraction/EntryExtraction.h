#pragma once

#include "EntryReader.h"
#include "ExtractionTask.h"

/// Extracts entries, one after the other. Each thread has its own, which keeps the buffers.
class EntryExtraction
{
public:
    /// \a data is that of the entry. \a betweenPieces is called before each piece; what it throws ends the
    /// extraction. After any failure there is no file. Throws BadArchive and FileFailure.
    void run(const ExtractionTask &task, PackedData &data, const std::function<void()> &betweenPieces);

private:
    void write(const ExtractionTask &task, const std::function<void(QByteArrayView)> &output,
               const std::function<void()> &betweenPieces);

    EntryReader m_reader;
};
