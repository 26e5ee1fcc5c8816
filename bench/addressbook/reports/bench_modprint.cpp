#include "AddressDatabase.h"
#include "BookList.h"
#include "ContactQuery.h"
#include "DetailSheet.h"
#include "Forms.h"
#include "ListView.h"
#include "ListedContacts.h"
#include "ManyContacts.h"
#include "Milliseconds.h"
#include "Paths.h"
#include "ReportFile.h"
#include "ReportRecord.h"
#include "RichTextBox.h"
#include "frmPrintDocument.h"
#include "modprint.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

// The detail sheets and the summary of 1,000 among 32,000 contacts, printed to PDF files; beside them their
// steps alone.
//
//     QT_QPA_PLATFORM=offscreen bench_modprint

namespace {

constexpr int contacts = 1000;

/// Presses "Print" as soon as the dialog is there, for the file \a path.
void answerPrintDialog(const QString &path)
{
    auto *poll = new QTimer(qApp);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, path] {
        auto *dialog = qobject_cast<QPrintDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        poll->deleteLater();
        dialog->findChild<QLineEdit *>(QStringLiteral("filename"))->setText(path);
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    poll->start(0);
}

template<class Step>
void show(const char *what, Step step)
{
    double busy = 0;
    const double time = milliseconds([&] { busy = processorMilliseconds(step); });
    std::printf("%-44s %8.0f ms, processor %8.0f ms\n", what, time, busy);
}

void measureReports(const ListView &list, const QString &folder)
{
    answerPrintDialog(folder + QStringLiteral("/sheets.pdf"));
    show("detail sheets of 1,000 contacts, printed", [&] { PrintSelectedRecords(list); });
    answerPrintDialog(folder + QStringLiteral("/table.pdf"));
    show("summary of 1,000 contacts, printed", [&] { PrintSummary(list); });
}

void measureSteps()
{
    ReportRecord record;
    ReportFile file;
    file.open(QStringLiteral("\\sheets.rtf"));
    show("    reading them", [&] {
        for (qint32 number = 1; number <= contacts; ++number)
            record.read(number, ReportRecord::Phones::Both);
    });
    show("    writing 500 files", [&] {
        for (int i = 0; i < contacts / 2; ++i) {
            file.print(DetailSheet::first(record));
            file.print(DetailSheet::second(record));
            file.close();
        }
    });
    file.print(DetailSheet::first(record));
    file.print(DetailSheet::second(record));
    file.close();
    auto &window = Forms::refer<frmPrintDocument>();
    window.load();
    show("    loading 500 files", [&] {
        for (int i = 0; i < contacts / 2; ++i)
            window.setFileName(file.path());
    });
    answerPrintDialog(Paths::appPath() + QStringLiteral("/steps.pdf"));
    window.choosePrinter(QStringLiteral("steps"));
    show("    printing 500 documents", [&] {
        for (int i = 0; i < contacts / 2; ++i)
            window.print();
    });
    window.finishPrinting();
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir folder(QDir::currentPath() + QStringLiteral("/bench-XXXXXX")); // on a disk
    qputenv("XDG_STATE_HOME", folder.path().toUtf8());
    Paths::setAppPath(folder.path());
    QFile::copy(QStringLiteral(QUILL_DATABASE), AddressDatabase::path());
    AddressDatabase::open(AddressDatabase::path());
    Forms::registerWindow(QStringLiteral("frmPrintDocument"), Forms::Instances::One,
                          [] { return new frmPrintDocument; });
    ManyContacts::add();
    ListView list;
    BookList::showContacts(
        list,
        ContactQuery::inOrder(ContactQuery::all() + QStringLiteral(" and Names.SrNo<=%1").arg(contacts), {}));
    ListedContacts::setAllChecked(list, true);
    measureReports(list, folder.path());
    measureSteps();
    AddressConnection.close();
    return 0;
}
