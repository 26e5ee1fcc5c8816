#include "WrittenColours.h"

#include "RtfWords.h"

#include <QBrush>

int WrittenColours::number(const QColor &colour)
{
    const QRgb rgb = colour.rgb();
    const auto known = m_numbers.constFind(rgb);
    if (known != m_numbers.constEnd())
        return *known;
    m_colours.append(rgb);
    return *m_numbers.insert(rgb, int(m_colours.size()));
}

int WrittenColours::number(const QBrush &brush)
{
    const bool paints = brush.style() != Qt::NoBrush && brush.color().alpha() != 0;
    return paints ? number(brush.color()) : 0;
}

QByteArray WrittenColours::table() const
{
    if (m_colours.isEmpty())
        return {};
    QByteArray out = "{\\colortbl;";
    for (const QRgb colour : m_colours) {
        RtfWords::append(out, "red", qRed(colour));
        RtfWords::append(out, "green", qGreen(colour));
        RtfWords::append(out, "blue", qBlue(colour));
        out.append(';');
    }
    return out.append('}');
}
