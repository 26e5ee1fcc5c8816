#pragma once

#include <QPainter>
#include <QTemporaryFile>

class QPrinter;

/// One job on a printer, or on a PDF file where there is none: pages painted one after the other and
/// handed over at the end. A file is written whole or not at all.
class PrintJob
{
public:
    /// Begins with the first page. Throws RuntimeError 482 where the printer does not begin.
    explicit PrintJob(QPrinter &printer);
    ~PrintJob();
    PrintJob(const PrintJob &) = delete;
    PrintJob &operator=(const PrintJob &) = delete;

    QPrinter &printer() const { return m_printer; }
    /// In the printer's dots, from the top left corner inside the margins.
    QPainter &painter() { return m_painter; }
    /// Throws RuntimeError 482.
    void newPage();
    /// For jobs of several documents: a new page unless this is the first call. Throws RuntimeError 482.
    void nextPage();
    /// Hands the job over. Throws RuntimeError 482 when the print server does not take it, and for a file as
    /// Files::write does; an old file is then unchanged.
    void finish();

private:
    bool isFile() const;
    void beginScratch();
    void deliverFile();

    QPrinter &m_printer;
    QString m_file; ///< as chosen; the printer writes into m_scratch meanwhile
    QTemporaryFile m_scratch;
    QPainter m_painter;
    bool m_isFirstPage = true;
};
