#include "PrinterPaper.h"

#include "PageSetup.h"
#include "RuntimeError.h"
#include "Twips.h"

#include <QPrinter>

namespace {

constexpr double leastText = 0.5; // inches: what leaves less is no margin that anybody meant

double inches(std::optional<int> twips, double otherwise)
{
    return twips ? qAbs(*twips) / double(Twips::perInch) : otherwise;
}

bool isPaper(std::optional<int> side)
{
    constexpr int least = Twips::perInch;
    return side && *side >= least;
}

} // namespace

PrinterPaper::PrinterPaper(const PageSetup &setup, QPrinter &printer)
    : m_setup(setup)
    , m_printer(printer)
    , m_before(printer.pageLayout())
{
    takePaper();
}

PrinterPaper::~PrinterPaper()
{
    if (m_printer.pageLayout() != m_before)
        m_printer.setPageLayout(m_before);
}

void PrinterPaper::takePaper()
{
    if (isPaper(m_setup.width) && isPaper(m_setup.height)) {
        const QSizeF points = QSizeF(*m_setup.width, *m_setup.height) / Twips::perPoint;
        const bool isWide = points.width() > points.height();
        const QSizeF upright = isWide ? points.transposed() : points;
        m_printer.setPageSize(QPageSize(upright, QPageSize::Point, {}, QPageSize::FuzzyMatch));
        m_printer.setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    } else if (m_setup.isLandscape) {
        m_printer.setPageOrientation(QPageLayout::Landscape);
    }
}

PageArea PrinterPaper::area() const
{
    const QPageLayout layout = m_printer.pageLayout();
    const QMarginsF own = layout.margins(QPageLayout::Inch);
    PageArea area;
    area.paper = layout.fullRect(QPageLayout::Inch).size();
    area.margins = QMarginsF(inches(m_setup.left, own.left()), inches(m_setup.top, own.top()),
                             inches(m_setup.right, own.right()), inches(m_setup.bottom, own.bottom()));
    area.isMirrored = m_setup.isMirrored;
    if (area.text().width() < leastText || area.text().height() < leastText)
        area.margins = own;
    if (area.text().isEmpty())
        throw RuntimeError(ErrorNumber::PrinterError);
    return area;
}

QPointF PrinterPaper::origin() const
{
    const QMarginsF own = m_printer.pageLayout().margins(QPageLayout::Inch);
    return {own.left(), own.top()};
}
