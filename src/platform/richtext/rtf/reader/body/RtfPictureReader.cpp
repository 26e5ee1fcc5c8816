#include "RtfPictureReader.h"

#include "ParagraphFormat.h"
#include "RichTextProperties.h"
#include "Twips.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QImageReader>
#include <QTextDocument>
#include <QUrl>
#include <QtEndian>
#include <array>

namespace {

constexpr int largestSide = 32767; // twips
constexpr int percent = 100;

constexpr std::array<qint8, 256> makeHexDigits()
{
    std::array<qint8, 256> digits{};
    digits.fill(-1);
    for (int i = 0; i < 10; ++i)
        digits[size_t('0' + i)] = qint8(i);
    for (int i = 0; i < 6; ++i)
        digits[size_t('a' + i)] = digits[size_t('A' + i)] = qint8(10 + i);
    return digits;
}

constexpr std::array<qint8, 256> hexDigits = makeHexDigits();

/// A bitmap of the file has no header of a file; where its pixels begin follows from what it says of itself.
QByteArray bitmapFile(const QByteArray &bitmap)
{
    constexpr quint32 fileHeader = 14;
    constexpr quint32 coreHeader = 12;
    constexpr quint32 infoHeader = 40;
    if (bitmap.size() < qsizetype(infoHeader))
        return {};
    const auto number = [&](int at) { return qFromLittleEndian<quint32>(bitmap.constData() + at); };
    const quint32 header = number(0);
    const bool isCore = header == coreHeader;
    const quint32 depth = qFromLittleEndian<quint16>(bitmap.constData() + (isCore ? 10 : 14));
    const quint32 compression = isCore ? 0 : number(16);
    quint32 colors = isCore ? 0 : number(32);
    if (colors == 0 && depth <= 8)
        colors = 1U << depth;
    colors = qMin(colors, 256U);
    const quint32 masks = compression == 3 && header == infoHeader ? 12 : 0;
    const quint32 pixels = fileHeader + header + masks + colors * (isCore ? 3 : 4);

    QByteArray file(fileHeader, '\0');
    file[0] = 'B';
    file[1] = 'M';
    qToLittleEndian<quint32>(fileHeader + quint32(bitmap.size()), file.data() + 2);
    qToLittleEndian<quint32>(pixels, file.data() + 10);
    return file + bitmap;
}

bool isReadable(QByteArray file)
{
    QBuffer buffer(&file);
    return buffer.open(QIODevice::ReadOnly) && QImageReader(&buffer).canRead();
}

/// One bit to the pixel: a file may have many, as large as pages.
QImage frame(const QSizeF &size)
{
    constexpr int most = 2048;
    constexpr QRgb clear = 0;
    constexpr QRgb grey = 0xFF808080;
    QImage image(size.toSize().expandedTo({2, 2}).boundedTo({most, most}), QImage::Format_Mono);
    image.setColorTable({clear, grey});
    image.fill(0);
    for (int x = 0; x < image.width(); ++x) {
        image.setPixel(x, 0, 1);
        image.setPixel(x, image.height() - 1, 1);
    }
    for (int y = 0; y < image.height(); ++y) {
        image.setPixel(0, y, 1);
        image.setPixel(image.width() - 1, y, 1);
    }
    return image;
}

} // namespace

RtfPictureReader::RtfPictureReader(QTextDocument &document)
    : m_document(document)
{}

void RtfPictureReader::begin()
{
    m_depth = 0;
    m_bytes.clear();
    m_halfByte = -1;
    m_kind.clear();
    m_width = m_height = m_goalWidth = m_goalHeight = 0;
    m_scaleX = m_scaleY = 0;
}

void RtfPictureReader::word(const RtfToken &token)
{
    const int side = qBound(0, token.parameter, largestSide);
    switch (token.word) {
    case RtfWord::PngPicture:
        return setKind("pngblip", token);
    case RtfWord::JpegPicture:
        return setKind("jpegblip", token);
    case RtfWord::EnhancedMetafile:
        return setKind("emfblip", token);
    case RtfWord::Metafile:
        return setKind("wmetafile", token);
    case RtfWord::PmMetafile:
        return setKind("pmmetafile", token);
    case RtfWord::DeviceIndependentBitmap:
        return setKind("dibitmap", token);
    case RtfWord::DeviceBitmap:
        return setKind("wbitmap", token);
    case RtfWord::MacPicture:
        return setKind("macpict", token);
    case RtfWord::PictureWidth:
        m_width = qMax(0, token.parameter);
        break;
    case RtfWord::PictureHeight:
        m_height = qMax(0, token.parameter);
        break;
    case RtfWord::PictureGoalWidth:
        m_goalWidth = side;
        break;
    case RtfWord::PictureGoalHeight:
        m_goalHeight = side;
        break;
    case RtfWord::PictureScaleX:
        m_scaleX = side;
        break;
    case RtfWord::PictureScaleY:
        m_scaleY = side;
        break;
    default:
        break;
    }
}

void RtfPictureReader::setKind(const char *word, const RtfToken &token)
{
    m_kind = word;
    if (token.hasParameter)
        m_kind += QByteArray::number(token.parameter);
}

void RtfPictureReader::bytes(QByteArrayView bytes)
{
    if (m_depth > 0)
        return;
    const qsizetype start = m_bytes.size();
    m_bytes.resize(start + bytes.size() / 2 + 1);
    char *to = m_bytes.data() + start;
    for (const char c : bytes) {
        const int digit = hexDigits[static_cast<uchar>(c)];
        if (digit < 0)
            continue;
        if (m_halfByte >= 0)
            *to++ = char(m_halfByte * 16 + digit);
        m_halfByte = m_halfByte >= 0 ? -1 : digit;
    }
    m_bytes.truncate(to - m_bytes.constData());
}

void RtfPictureReader::binary(QByteArrayView bytes)
{
    if (m_depth == 0)
        m_bytes.append(bytes);
}

QTextImageFormat RtfPictureReader::end()
{
    QTextImageFormat format;
    if (m_bytes.isEmpty())
        return format;
    m_bytes.squeeze();
    const QSizeF size = shownSize();
    format.setName(addResource(size));
    if (!size.isEmpty()) {
        format.setWidth(size.width());
        format.setHeight(size.height());
    }
    format.setProperty(RichTextProperty::PictureBytes, m_bytes);
    format.setProperty(RichTextProperty::PictureKind, m_kind.isEmpty() ? QByteArray("wbitmap0") : m_kind);
    const auto keep = [&](int property, int value) {
        if (value > 0)
            format.setProperty(property, value);
    };
    keep(RichTextProperty::PictureSourceWidth, m_width);
    keep(RichTextProperty::PictureSourceHeight, m_height);
    keep(RichTextProperty::PictureWidth, m_goalWidth);
    keep(RichTextProperty::PictureHeight, m_goalHeight);
    keep(RichTextProperty::PictureScaleX, m_scaleX);
    keep(RichTextProperty::PictureScaleY, m_scaleY);
    return format;
}

/// The goal, scaled; without one a metafile's own size in hundredths of a millimetre, or a bitmap's in
/// pixels.
QSizeF RtfPictureReader::shownSize() const
{
    constexpr double hundredthsPerInch = 2540;
    const double dpi = ParagraphFormat::layoutDpi();
    const bool isMetafile = m_kind.startsWith("wmetafile") || m_kind.startsWith("emf");
    const auto side = [&](int goal, int own, int scale) {
        const double ownPixels = isMetafile ? own * dpi / hundredthsPerInch : own;
        const double pixels = goal > 0 ? goal * dpi / Twips::perInch : ownPixels;
        return qMin(double(largestSide), pixels * (scale > 0 ? scale : percent) / percent);
    };
    return {side(m_goalWidth, m_width, m_scaleX), side(m_goalHeight, m_height, m_scaleY)};
}

QByteArray RtfPictureReader::asFile() const
{
    return m_kind.startsWith("dibitmap") ? bitmapFile(m_bytes) : m_bytes;
}

/// Qt decodes the bytes when they are first painted.
QString RtfPictureReader::addResource(const QSizeF &size)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(m_bytes);
    const QByteArray file = asFile();
    const bool isDrawing = m_kind.contains("metafile") || m_kind.startsWith("emf") ||
                           m_kind.startsWith("mac") || m_kind.startsWith("wbitmap");
    const bool isShown = !isDrawing && isReadable(file);
    const QString sides = QStringLiteral("-%1x%2").arg(qRound(size.width())).arg(qRound(size.height()));
    const QString name = QStringLiteral("picture-") + QString::fromLatin1(hash.result().toHex()) +
                         (isShown ? QString() : sides);
    const QUrl url(name);
    if (!isShown)
        m_document.addResource(QTextDocument::ImageResource, url, frame(size));
    else
        m_document.addResource(QTextDocument::ImageResource, url, file);
    return name;
}
