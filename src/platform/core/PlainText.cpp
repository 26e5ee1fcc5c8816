#include "PlainText.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
#include <array>

namespace {

/// Windows-1252 from 0x80 to 0x9F; the five bytes that the page leaves open keep their control characters.
constexpr std::array<char16_t, 32> highControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decodeAs(QStringConverter::Encoding encoding, const QByteArray &bytes, bool *valid)
{
    // Stateless, so that a character cut off at the end is an error and not waited for.
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    const QString text = decoder(bytes);
    *valid = !decoder.hasError();
    return text;
}

QString decodeAny(const QByteArray &bytes)
{
    bool valid = false;
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        const QString text = decodeAs(QStringConverter::Utf16, bytes, &valid);
        if (valid)
            return text;
    }
    const QString text = decodeAs(QStringConverter::Utf8, bytes, &valid);
    return valid ? text : PlainText::fromWindows1252(bytes);
}

} // namespace

QString PlainText::decode(const QByteArray &bytes)
{
    QString text = decodeAny(bytes);
    if (text.contains(u'\r')) {
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        text.replace(u'\r', u'\n');
    }
    return text.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

PlainText::LineEnd PlainText::lineEndOf(const QByteArray &bytes)
{
    const qsizetype crLf = bytes.count("\r\n");
    const qsizetype lf = bytes.count('\n') - crLf;
    const qsizetype cr = bytes.count('\r') - crLf;
    if (crLf > lf && crLf >= cr)
        return LineEnd::CrLf;
    return cr > lf ? LineEnd::Cr : LineEnd::Lf;
}

QByteArray PlainText::encode(const QString &text, LineEnd lineEnd)
{
    QByteArray bytes = text.toUtf8();
    if (lineEnd == LineEnd::CrLf)
        bytes.replace("\n", "\r\n");
    else if (lineEnd == LineEnd::Cr)
        bytes.replace('\n', '\r');
    return bytes;
}

QString PlainText::fromWindows1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &c : text) {
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0)
            c = QChar(highControls[c.unicode() - 0x80]);
    }
    return text;
}

QByteArray PlainText::toWindows1252(QStringView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        const auto high = std::find(highControls.begin(), highControls.end(), c);
        if (high != highControls.end())
            bytes.append(char(0x80 + (high - highControls.begin())));
        else if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
            bytes.append(char(c));
        else if (!text[i].isLowSurrogate() || i == 0 || !text[i - 1].isHighSurrogate())
            bytes.append('?'); // one for a surrogate pair
    }
    return bytes;
}
