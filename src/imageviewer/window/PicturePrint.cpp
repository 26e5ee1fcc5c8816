#include "PicturePrint.h"

#include "PrintJob.h"

#include <QPainter>
#include <QPrinter>

namespace {

/// The printer's margins are as small as they can be while this exists.
class NoMargins
{
public:
    explicit NoMargins(QPrinter &printer)
        : m_printer(printer)
        , m_before(printer.pageLayout())
    {
        QPageLayout layout = m_before;
        layout.setMargins(layout.minimumMargins());
        m_printer.setPageLayout(layout);
    }
    ~NoMargins() { m_printer.setPageLayout(m_before); }
    NoMargins(const NoMargins &) = delete;
    NoMargins &operator=(const NoMargins &) = delete;

private:
    QPrinter &m_printer;
    QPageLayout m_before;
};

} // namespace

void PicturePrint::print(const QImage &picture, QPrinter &printer, const QSize &dpi)
{
    const NoMargins noMargins(printer);
    PrintJob job(printer);
    const QSizeF size(double(picture.width()) * printer.logicalDpiX() / dpi.width(),
                      double(picture.height()) * printer.logicalDpiY() / dpi.height());
    job.painter().setRenderHint(QPainter::LosslessImageRendering); // a PDF file has a JPEG otherwise
    job.painter().drawImage(QRectF({}, size), picture);
    job.finish();
}
