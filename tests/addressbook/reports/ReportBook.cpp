#include "ReportBook.h"

#include "ContactRows.h"
#include "Files.h"
#include "Forms.h"
#include "Paths.h"
#include "PlainText.h"
#include "PressPrint.h"
#include "PrintQt.h"
#include "PrintedPdf.h"
#include "frmPrintDocument.h"
#include "modGetFunctions.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

QStringList linesOf(const QByteArray &bytes)
{
    return PlainText::fromWindows1252(bytes).split(QStringLiteral("\r\n"));
}

} // namespace

ReportBook::ReportBook()
{
    Forms::registerWindow(QStringLiteral("frmPrintDocument"), Forms::Instances::One,
                          [] { return new frmPrintDocument; });
    rows.setCheckboxes(true);
    rows.setColumnHeaders({{QStringLiteral("Col1"), QStringLiteral("Name"), 2400}});
}

ReportBook::~ReportBook()
{
    const QList<Form *> loaded = Forms::loaded();
    for (Form *form : loaded)
        form->unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

qint32 ReportBook::add(const QString &name)
{
    return add({.groupId = 1, .name = name}, {.cityId = 1}, {.cityId = 1});
}

qint32 ReportBook::add(NameRow name, HomeRow home, BusinessRow business, const QStringList &eMails)
{
    const qint32 number = NextSrNo();
    ContactRows::addName(number, name);
    ContactRows::addEMails(number, eMails);
    ContactRows::addHome(number, home);
    ContactRows::addBusiness(number, business);
    list(number, name.name);
    return number;
}

void ReportBook::add(std::initializer_list<const char *> names)
{
    for (const char *name : names)
        add(QString::fromLatin1(name));
}

void ReportBook::list(qint32 number, const QString &name)
{
    rows.ListItems().Add({.Key = QStringLiteral("SrNo%1").arg(number), .Text = name, .SubItems = {}});
    rows.ListItems().setChecked(rows.ListItems().Count(), true);
}

void ReportBook::expectPrint(const char *name)
{
    const QString path = book.home().file(QString::fromLatin1(name));
    expectPrintDialog([path](QPrintDialog &dialog) { pressPrint(dialog, path); });
}

void ReportBook::expectPrintDialog(std::function<void(QPrintDialog &)> act)
{
    frame.dialogs.expectWindow<QPrintDialog>(QStringLiteral("PrintDialog"), std::move(act));
}

void ReportBook::expectCancel()
{
    expectPrintDialog([](QPrintDialog &dialog) { dialog.reject(); });
}

void ReportBook::expectError(int number, const char *description)
{
    frame.dialogs
        .expectBox(QStringLiteral("System Error!"),
                   QStringLiteral("An error has occurred - Code: %1 Description: %2")
                       .arg(number)
                       .arg(QLatin1String(description)))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
}

bool ReportBook::canReadPages()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty();
}

QString ReportBook::printed(const char *name) const
{
    return printedPages(name).join(u' ').simplified();
}

QStringList ReportBook::printedPages(const char *name) const
{
    const QString path = book.home().file(QString::fromLatin1(name));
    return QFile::exists(path) ? PrintedPdf(path).pages() : QStringList();
}

QString ReportBook::printedFiles() const
{
    return QDir(book.home().path()).entryList({QStringLiteral("*.pdf")}, QDir::Files, QDir::Name).join(u'|');
}

QByteArray ReportBook::report(const char *name) const
{
    return Files::read(Paths::appPath() + u'/' + QString::fromLatin1(name));
}

QStringList ReportBook::detailLines() const
{
    return linesOf(detailFile());
}

QStringList ReportBook::summaryLines() const
{
    return linesOf(summaryFile());
}

QString ReportBook::detailLine(const char *words) const
{
    const QString start = QString::fromLatin1(words);
    const QStringList found = detailLines().filter(start);
    EXPECT_FALSE(found.isEmpty()) << words;
    return found.isEmpty() ? QString() : found.first().mid(found.first().indexOf(start) + start.size());
}
