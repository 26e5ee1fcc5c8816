#pragma once

#include "PageArea.h"

#include <QPageLayout>
#include <QPointF>

class QPrinter;
struct PageSetup;

/// A printer that has the paper of a document, as long as this lives, as far as the printer has such paper.
class PrinterPaper
{
public:
    PrinterPaper(const PageSetup &setup, QPrinter &printer);
    ~PrinterPaper();
    PrinterPaper(const PrinterPaper &) = delete;
    PrinterPaper &operator=(const PrinterPaper &) = delete;

    /// The margins are the document's, those that it does not say the printer's. Throws RuntimeError 482
    /// where they leave no paper.
    PageArea area() const;

    /// Where on the paper the printer begins to paint, in inches.
    QPointF origin() const;

private:
    void takePaper();

    const PageSetup &m_setup;
    QPrinter &m_printer;
    const QPageLayout m_before;
};
