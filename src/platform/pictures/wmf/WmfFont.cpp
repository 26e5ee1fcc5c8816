#include "WmfFont.h"

#include "PlainText.h"

#include <QFontMetricsF>
#include <QStringDecoder>
#include <QStringList>
#include <array>

namespace {

struct CharacterSet
{
    quint8 number;
    const char *name;
};

constexpr std::array<CharacterSet, 13> characterSets = {{{128, "Shift_JIS"},
                                                         {129, "windows-949"},
                                                         {134, "GBK"},
                                                         {136, "Big5"},
                                                         {161, "windows-1253"},
                                                         {162, "windows-1254"},
                                                         {163, "windows-1258"},
                                                         {177, "windows-1255"},
                                                         {178, "windows-1256"},
                                                         {186, "windows-1257"},
                                                         {204, "windows-1251"},
                                                         {222, "windows-874"},
                                                         {238, "windows-1250"}}};

/// The name ends at the first zero.
QByteArrayView faceName(const WmfRecord &record)
{
    constexpr qsizetype longest = 32;
    QByteArrayView name = record.from(9);
    name = name.first(qMin(name.size(), longest));
    const qsizetype end = name.indexOf('\0');
    return end < 0 ? name : name.first(end);
}

} // namespace

WmfFont WmfFont::of(const WmfRecord &record)
{
    constexpr double tenth = 10;
    WmfFont font;
    font.height = record.number(0) == 0 ? font.height : record.number(0);
    font.angle = record.number(2) / tenth;
    font.font.setWeight(record.number(4) > 550 ? QFont::Bold : QFont::Normal);
    font.font.setItalic(record.word(5) & 0x00FF);
    font.font.setUnderline(record.word(5) & 0xFF00);
    font.font.setStrikeOut(record.word(6) & 0x00FF);
    font.characterSet = quint8(record.word(6) >> 8);
    const QByteArrayView name = faceName(record);
    if (!name.isEmpty())
        font.font.setFamilies({PlainText::fromWindows1252(name)});
    return font;
}

QString WmfFont::decoded(QByteArrayView bytes) const
{
    for (const CharacterSet &set : characterSets) {
        QStringDecoder decoder(set.number == characterSet ? set.name : "");
        if (decoder.isValid())
            return decoder(bytes);
    }
    return PlainText::fromWindows1252(bytes);
}

QFont WmfFont::scaled(double pixels, int most) const
{
    QFont result = font;
    double letters = qAbs(height) * pixels;
    if (height > 0) {
        constexpr int probe = 100;
        result.setPixelSize(probe);
        letters *= probe / QFontMetricsF(result).height();
    }
    result.setPixelSize(int(qBound(1.0, letters, double(most))));
    return result;
}
