#include "WmfMaking.h"

#include "WmfColor.h"
#include "WmfImage.h"
#include "WmfSettings.h"

#include <array>

namespace {

constexpr std::array penStyles = {Qt::SolidLine,      Qt::DashLine, Qt::DotLine,  Qt::DashDotLine,
                                  Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine};
constexpr std::array hatches = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
constexpr std::array caps = {Qt::RoundCap, Qt::SquareCap, Qt::FlatCap};
constexpr std::array joins = {Qt::RoundJoin, Qt::BevelJoin, Qt::MiterJoin};

/// The row that \a number says, the first one for a number without a row.
template<class Rows>
auto rowOf(const Rows &rows, int number)
{
    return number >= 0 && std::size_t(number) < rows.size() ? rows[std::size_t(number)] : rows[0];
}

} // namespace

void WmfMaking::makePen(WmfCanvas &canvas, const WmfRecord &record)
{
    const int style = record.word(0);
    QPen pen(WmfColor::of(record, 3), qAbs(record.number(1)));
    pen.setStyle(rowOf(penStyles, style & 0xF));
    pen.setCapStyle(rowOf(caps, style >> 8 & 0xF));
    pen.setJoinStyle(rowOf(joins, style >> 12 & 0xF));
    canvas.objects().add(pen);
}

void WmfMaking::makeBrush(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int none = 1;
    constexpr int hatched = 2;
    QBrush brush(WmfColor::of(record, 1));
    if (record.word(0) == none)
        brush.setStyle(Qt::NoBrush);
    else if (record.word(0) == hatched)
        brush.setStyle(rowOf(hatches, record.number(3)));
    canvas.objects().add(brush);
}

void WmfMaking::makeFont(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.objects().add(WmfFont::of(record));
}

void WmfMaking::makeRegion(WmfCanvas &canvas, const WmfRecord &record)
{
    const QPoint first(record.number(7), record.number(8));
    const QPoint second(record.number(9), record.number(10));
    canvas.objects().add(WmfObjects::Region(first, QSize(second.x() - first.x(), second.y() - first.y())));
}

void WmfMaking::makePalette(WmfCanvas &canvas, const WmfRecord &)
{
    canvas.objects().add(WmfObjects::Palette());
}

void WmfMaking::makePatternBrush(WmfCanvas &canvas, const WmfRecord &record)
{
    constexpr int side = 64; // a pattern of more is cut: a file may have thousands of them
    const QImage pattern = WmfImage::of(canvas, record.from(2));
    canvas.objects().add(pattern.isNull() ? QBrush(Qt::gray)
                                          : QBrush(pattern.copy(0, 0, qMin(side, pattern.width()),
                                                                qMin(side, pattern.height()))));
}

void WmfMaking::makeOldPatternBrush(WmfCanvas &canvas, const WmfRecord &)
{
    canvas.objects().add(QBrush(Qt::gray));
}

void WmfMaking::select(WmfCanvas &canvas, const WmfRecord &record)
{
    const WmfObjects::Object &object = canvas.objects().at(record.word(0));
    if (const auto *pen = std::get_if<QPen>(&object))
        canvas.state().pen = *pen;
    else if (const auto *brush = std::get_if<QBrush>(&object))
        canvas.state().brush = *brush;
    else if (const auto *font = std::get_if<WmfFont>(&object))
        canvas.state().font = *font;
    else if (std::holds_alternative<WmfObjects::Region>(object))
        WmfSettings::clipToRegion(canvas, record);
}

void WmfMaking::remove(WmfCanvas &canvas, const WmfRecord &record)
{
    canvas.objects().remove(record.word(0));
}
