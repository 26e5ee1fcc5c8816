#include "PrintJob.h"

#include "Files.h"
#include "RuntimeError.h"

#include <QDir>
#include <QLibrary>
#include <QPrinter>
#include <utility>

namespace {

/// Qt hands a job to the print server and does not report its answer. The server's library keeps it.
bool serverTookJob()
{
    constexpr int lastSuccess = 0xFF;
    using LastError = int (*)();
    QLibrary library(QStringLiteral("cups"), 2);
    const auto lastError = reinterpret_cast<LastError>(library.resolve("cupsLastError"));
    return !lastError || (lastError() >= 0 && lastError() <= lastSuccess);
}

bool isWholePdf(const QByteArray &bytes)
{
    return bytes.trimmed().endsWith("%%EOF");
}

} // namespace

PrintJob::PrintJob(QPrinter &printer)
    : m_printer(printer)
    , m_file(printer.outputFileName())
    , m_scratch(QDir::tempPath() + QStringLiteral("/print-XXXXXX.pdf"))
{
    if (isFile())
        beginScratch();
    if (m_painter.begin(&m_printer))
        return;
    m_printer.setOutputFileName(m_file);
    throw RuntimeError(ErrorNumber::PrinterError);
}

PrintJob::~PrintJob()
{
    if (m_painter.isActive())
        m_painter.end();
    if (isFile())
        m_printer.setOutputFileName(m_file);
}

bool PrintJob::isFile() const
{
    return m_printer.outputFormat() == QPrinter::PdfFormat;
}

void PrintJob::beginScratch()
{
    if (!m_scratch.open())
        throw RuntimeError(ErrorNumber::PathFileAccessError, {}, m_scratch.fileName());
    m_printer.setOutputFileName(m_scratch.fileName());
}

void PrintJob::newPage()
{
    if (!m_printer.newPage())
        throw RuntimeError(ErrorNumber::PrinterError);
}

void PrintJob::nextPage()
{
    if (!std::exchange(m_isFirstPage, false))
        newPage();
}

void PrintJob::finish()
{
    if (!m_painter.end() || m_printer.printerState() == QPrinter::Error)
        throw RuntimeError(ErrorNumber::PrinterError);
    if (isFile())
        deliverFile();
    else if (!serverTookJob())
        throw RuntimeError(ErrorNumber::PrinterError);
}

void PrintJob::deliverFile()
{
    const QByteArray bytes = Files::read(m_scratch.fileName());
    if (!isWholePdf(bytes)) // Qt does not report a full disk
        throw RuntimeError(ErrorNumber::DiskFull, {}, m_scratch.fileName());
    Files::write(m_file, bytes);
}
