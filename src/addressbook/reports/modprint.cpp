#include "modprint.h"

#include "Ask.h"
#include "BookList.h"
#include "DetailSheet.h"
#include "ErrorReports.h"
#include "Forms.h"
#include "ListView.h"
#include "ReportFile.h"
#include "ReportRecord.h"
#include "SummaryTable.h"
#include "frmPrintDocument.h"
#include "modMain.h"

#include <limits>

namespace {

const QString detailFile = QStringLiteral("\\recordtest.rtf");
const QString summaryFile = QStringLiteral("\\recordtestr.rtf");
const QString detailJob = QStringLiteral("Address Book Details");
const QString summaryJob = QStringLiteral("Address Records Summary");

/// Intended: it lives as long as the process, with the blanks of its e-mail addresses.
ReportRecord contact;
ReportFile reportFile;

qint16 ReportCount = 0;    ///< contacts in the document being written
qint32 RecordsPrinted = 0; ///< contacts of this run

/// Begins a run; false where there is nothing to print.
bool begin(const ListView &list)
{
    CheckAnySelected(list);
    if (!BookList::hasContacts(list))
        return false;
    if (AnyChecked == 0) {
        Ask(QStringLiteral("You have not selected any records to print!"), MsgBoxStyle::Information,
            QStringLiteral("Nothing to Print..."));
        return false;
    }
    reportFile.drop();
    ReportCount = 0;
    RecordsPrinted = 0;
    return true;
}

template<class Step>
void forEachChecked(const ListView &list, ReportRecord::Phones phones, Step step)
{
    const qint32 count = list.ListItems().Count();
    for (qint32 ListIndexPos = 1; ListIndexPos <= count; ++ListIndexPos) {
        if (!list.ListItems().isChecked(ListIndexPos))
            continue;
        contact.read(BookList::contactNumber(list.ListItems().key(ListIndexPos)), phones);
        step();
    }
}

/// The hidden window with the report that has just been written.
frmPrintDocument &loadedReport()
{
    reportFile.close();
    auto &window = Forms::refer<frmPrintDocument>();
    window.load();
    window.setFileName(reportFile.path());
    return window;
}

/// Prints without errors; a cancelled dialog prints nothing.
void printAskingSilently(frmPrintDocument &window, const QString &job)
{
    try {
        window.choosePrinter(job);
    } catch (const RuntimeError &error) {
        if (error.number() == ErrorNumber::DialogCancelled)
            return;
    }
    ignoreErrors([&] {
        window.print();
        window.finishPrinting();
    });
}

void WriteNextDetail()
{
    reportFile.print(DetailSheet::second(contact));
}

void WriteFirstSummaryRow()
{
    reportFile.open(summaryFile);
    reportFile.print(SummaryTable::firstRow(contact));
}

void WriteSummaryRow()
{
    reportFile.print(SummaryTable::row(contact));
}

/// Sets \a isTrapped as soon as errors are to end in a box.
void printPair(bool &isTrapped)
{
    constexpr qint32 onePair = 2;
    WriteNextDetail();
    frmPrintDocument &window = loadedReport();
    isTrapped = true;
    if (RecordsPrinted <= onePair)
        window.choosePrinter(detailJob);
    window.print();
    ReportCount = 0;
}

void printLastSingle()
{
    reportFile.print(DetailSheet::end());
    frmPrintDocument &window = loadedReport();
    if (RecordsPrinted == 1)
        printAskingSilently(window, detailJob);
    else
        ignoreErrors([&] { window.print(); });
}

void printDetails(const ListView &list, bool &isTrapped)
{
    forEachChecked(list, ReportRecord::Phones::Both, [&] {
        ++ReportCount;
        ++RecordsPrinted;
        if (ReportCount == 1)
            WriteFirstDetail();
        else
            printPair(isTrapped);
    });
    if (ReportCount == 1)
        printLastSingle();
    auto &window = Forms::refer<frmPrintDocument>();
    window.finishPrinting();
    window.unload();
}

/// What was printed before a failure is kept, as far as it can be.
void finishAfterFailure()
{
    ignoreErrors([] { Forms::refer<frmPrintDocument>().finishPrinting(); });
}

void countSummaryRow()
{
    if (ReportCount == std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    ++ReportCount;
}

void printTable(const ListView &list)
{
    forEachChecked(list, ReportRecord::Phones::First, [] {
        countSummaryRow();
        ReportCount == 1 ? WriteFirstSummaryRow() : WriteSummaryRow();
    });
    reportFile.print(SummaryTable::end());
    frmPrintDocument &window = loadedReport();
    printAskingSilently(window, summaryJob);
    window.unload();
}

} // namespace

void PrintSelectedRecords(const ListView &list)
{
    if (!begin(list))
        return;
    bool isTrapped = false;
    try {
        printDetails(list, isTrapped);
    } catch (const RuntimeError &error) {
        if (!isTrapped)
            throw;
        finishAfterFailure();
        ReportRecoverableError(error.number(), error.description());
    }
}

void PrintSummary(const ListView &list)
{
    resumeNext([&] {
        if (begin(list))
            printTable(list);
    });
}

void WriteFirstDetail()
{
    reportFile.open(detailFile);
    reportFile.print(DetailSheet::first(contact));
}
