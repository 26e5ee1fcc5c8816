#include "WmfTexts.h"

#include <QFontMetricsF>
#include <cmath>
#include <numeric>

namespace {

constexpr int atPositionFlag = 0x01;
constexpr int rightFlag = 0x02;
constexpr int centerFlags = 0x06;
constexpr int bottomFlag = 0x08;
constexpr int baselineFlags = 0x18;

struct Text
{
    QPointF place; ///< in units
    QByteArrayView bytes;
    QList<double> advances; ///< in units; empty where the font says them
    std::optional<QRectF> clip;
};

/// A text as it is drawn, in pixels.
struct Line
{
    QString text;
    QFont font;
    QList<double> advances; ///< of each character, or empty
    double width = 0;
};

/// Large letters take as long as shapes of their size.
qint64 stepsOf(const WmfCanvas &canvas, const Line &line)
{
    constexpr qint64 shaping = 2000;
    const qint64 height = qMin(line.font.pixelSize(), canvas.pixels().height());
    return line.text.size() * (shaping + height * height / 2);
}

Line lineOf(const WmfCanvas &canvas, const Text &text)
{
    const WmfState &state = canvas.state();
    Line line;
    line.text = state.font.decoded(text.bytes);
    line.font =
        state.font.scaled(state.mapping.scaleY(), qMax(canvas.pixels().width(), canvas.pixels().height()));
    line.font.setLetterSpacing(QFont::AbsoluteSpacing, state.textSpacing * state.mapping.scaleX());
    // A character of two bytes has one width in two parts.
    if (line.text.size() == text.advances.size()) {
        for (const double advance : text.advances)
            line.advances.append(advance * state.mapping.scaleX());
    }
    return line;
}

/// Where the line begins, on its baseline, as seen from the text's place.
QPointF beginning(const Line &line, int alignment)
{
    const QFontMetricsF metrics(line.font);
    double x = 0;
    if ((alignment & centerFlags) == centerFlags)
        x = -line.width / 2;
    else if (alignment & rightFlag)
        x = -line.width;
    if ((alignment & baselineFlags) == baselineFlags)
        return {x, 0};
    return {x, alignment & bottomFlag ? -metrics.descent() : metrics.ascent()};
}

void drawCharacters(QPainter &painter, const Line &line, QPointF place)
{
    if (line.advances.isEmpty()) {
        painter.drawText(place, line.text);
        return;
    }
    for (qsizetype index = 0; index < line.text.size(); ++index) {
        painter.drawText(place, line.text.mid(index, 1));
        place.rx() += line.advances[index];
    }
}

void draw(WmfCanvas &canvas, const Text &text)
{
    WmfState &state = canvas.state();
    const bool movesOn = state.textAlignment & atPositionFlag;
    const QPointF units = movesOn ? state.position : text.place;
    const QPointF place = canvas.toPixels(units);
    if (text.bytes.isEmpty() || !canvas.work().take(canvas.work().ofChoosing(state.font.font)))
        return;
    Line line = lineOf(canvas, text);
    QPainter *painter = canvas.painter(stepsOf(canvas, line));
    if (!painter)
        return;
    const QFontMetricsF metrics(line.font);
    line.width = line.advances.isEmpty() ? metrics.horizontalAdvance(line.text)
                                         : std::accumulate(line.advances.begin(), line.advances.end(), 0.0);
    if (text.clip)
        painter->setClipRect(*text.clip, Qt::IntersectClip);
    painter->translate(place);
    painter->rotate(-state.font.angle);
    const QPointF begin = beginning(line, state.textAlignment);
    if (state.fillsBackground)
        painter->fillRect(QRectF(begin.x(), begin.y() - metrics.ascent(), line.width, metrics.height()),
                          state.background);
    painter->setFont(line.font);
    painter->setPen(state.textColor);
    drawCharacters(*painter, line, begin);
    if (movesOn)
        state.position = units + QPointF(line.width / state.mapping.scaleX(), 0);
}

} // namespace

void WmfTexts::textOut(WmfCanvas &canvas, const WmfRecord &record)
{
    const qsizetype length = record.word(0);
    const qsizetype words = (length + 1) / 2;
    const QByteArrayView rest = record.from(1);
    Text text;
    text.place = QPointF(record.number(words + 2), record.number(words + 1));
    text.bytes = rest.first(qMin(length, rest.size()));
    draw(canvas, text);
}

void WmfTexts::extendedTextOut(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int fillFlag = 0x02;
    constexpr int clipFlag = 0x04;
    const int options = record.word(3);
    const bool hasRectangle = options & (fillFlag | clipFlag);
    const qsizetype begin = hasRectangle ? 8 : 4;
    const QByteArrayView rest = record.from(begin);
    Text text;
    text.place = QPointF(record.number(1), record.number(0));
    text.bytes = rest.first(qMin(qsizetype(record.word(2)), rest.size()));
    const qsizetype advances = begin + (text.bytes.size() + 1) / 2;
    if (record.count() - advances >= text.bytes.size()) {
        for (qsizetype index = 0; index < text.bytes.size(); ++index)
            text.advances.append(record.number(advances + index));
    }
    if (hasRectangle) {
        const QRectF area = canvas.toPixels(
            QRectF(QPointF(record.number(4), record.number(5)), QPointF(record.number(6), record.number(7))));
        if (options & fillFlag)
            canvas.fill(area, canvas.state().background, QPainter::CompositionMode_SourceOver);
        if (options & clipFlag)
            text.clip = area;
    }
    draw(canvas, text);
}
