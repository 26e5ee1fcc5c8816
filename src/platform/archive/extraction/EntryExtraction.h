#pragma once

#include "EntryReader.h"
#include "ExtractedFile.h"
#include "ExtractionTask.h"
#include "FileDescriptor.h"

/// Extracts entries, one after the other. Each thread has its own, which keeps the buffers.
class EntryExtraction
{
public:
    /// \a archive has to exist for as long as this object.
    explicit EntryExtraction(const FileDescriptor &archive)
        : m_archive(archive)
    {}

    /// \a betweenPieces is called before each piece; what it throws ends the extraction. Returns the file,
    /// finished but not published yet, unless the task has none. Throws BadArchive, WrongPassword and
    /// FileFailure.
    std::unique_ptr<ExtractedFile> run(const ExtractionTask &task,
                                       const std::function<void()> &betweenPieces);

private:
    std::shared_ptr<PackedData> dataOf(const ExtractionTask &task) const;
    void write(const ExtractionTask &task, const std::function<void(QByteArrayView)> &output,
               const std::function<void()> &betweenPieces);

    const FileDescriptor &m_archive;
    EntryReader m_reader;
};
