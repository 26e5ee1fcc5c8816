#include "EntryExtraction.h"

#include "CarriageReturns.h"

std::unique_ptr<ExtractedFile> EntryExtraction::run(const ExtractionTask &task, PackedData &data,
                                                    const std::function<void()> &betweenPieces)
{
    m_reader.start(data, *task.entry, task.isUnpacked, betweenPieces);
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
