#pragma once

#include "ExtractionTask.h"
#include "PendingFile.h"

/// The file that an entry becomes. It appears under its name, with its time and permissions, only when it is
/// whole. Throws FileFailure.
class ExtractedFile
{
public:
    explicit ExtractedFile(const ExtractionTask &task);

    void write(QByteArrayView bytes);
    /// All is written. The file gets its time and permissions.
    void finish();
    /// It takes the place of a file, so its data has to be on the disk first: a power cut must not cost both.
    /// finish() has the disk begin with that; several files that are finished before the first is published
    /// cost hardly more time than one.
    bool replaces() const { return m_task.existing == PendingFile::Existing::Replace; }
    void publish();

private:
    const ExtractionTask m_task;
    PendingFile m_file;
};
