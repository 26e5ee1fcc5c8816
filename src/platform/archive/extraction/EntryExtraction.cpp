#include "EntryExtraction.h"

#include "AesData.h"
#include "CarriageReturns.h"
#include "PlainData.h"

std::unique_ptr<ExtractedFile> EntryExtraction::run(const ExtractionTask &task,
                                                    const std::function<void()> &betweenPieces)
{
    const std::shared_ptr<PackedData> data = dataOf(task);
    m_reader.start(*data, *task.entry, task.isUnpacked, betweenPieces);
    if (!task.folder) {
        write(task, task.output, betweenPieces);
        return nullptr;
    }
    auto file = std::make_unique<ExtractedFile>(task);
    write(
        task, [&file](QByteArrayView piece) { file->write(piece); }, betweenPieces);
    file->finish();
    return file;
}

std::shared_ptr<PackedData> EntryExtraction::dataOf(const ExtractionTask &task) const
{
    if (task.data)
        return task.data;
    const auto size = qint64(task.entry->packedSize);
    auto plain = std::make_unique<PlainData>(m_archive, task.dataOffset, size);
    if (task.password.isEmpty())
        return plain;
    return std::make_shared<AesData>(std::move(plain), size, task.entry->aesStrength, task.password);
}

void EntryExtraction::write(const ExtractionTask &task, const std::function<void(QByteArrayView)> &output,
                            const std::function<void()> &betweenPieces)
{
    CarriageReturns returns;
    for (;;) {
        betweenPieces();
        const QByteArrayView piece = m_reader.next();
        if (piece.isEmpty())
            break;
        if (output)
            output(task.convertsReturns ? returns.convert(piece) : piece);
    }
    if (output && task.convertsReturns)
        output(returns.finish());
}
