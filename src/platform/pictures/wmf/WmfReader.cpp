#include "WmfReader.h"

#include "PictureLimit.h"
#include "RuntimeError.h"
#include "WmfCanvas.h"
#include "WmfFrame.h"
#include "WmfHeader.h"
#include "WmfPlayer.h"
#include "WmfRecordList.h"

bool WmfReader::recognises(QByteArrayView file)
{
    return WmfHeader::of(file).has_value();
}

QImage WmfReader::read(QByteArrayView file, qint64 mostBytes)
{
    const std::optional<WmfHeader> header = WmfHeader::of(file);
    if (!header)
        throw RuntimeError(ErrorNumber::InvalidPicture);
    const QByteArrayView commands = file.sliced(header->firstRecord);
    const WmfFrame frame = WmfFrame::of(*header, commands);
    if (qint64(frame.pixels.width()) * frame.pixels.height() > mostBytes / qint64(sizeof(QRgb)))
        throw PictureLimit::exceeded();

    QImage image(frame.pixels, QImage::Format_RGB32);
    image.fill(Qt::white);
    WmfCanvas canvas(image, frame.window);
    WmfRecordList list(commands);
    WmfPlayer::play(list, canvas);
    if (list.isDamaged() && !canvas.isUsed())
        throw RuntimeError(ErrorNumber::InvalidPicture);
    return image;
}
