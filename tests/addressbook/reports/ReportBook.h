#pragma once

#include "BusinessRow.h"
#include "FakeFrame.h"
#include "HomeRow.h"
#include "ListView.h"
#include "NameRow.h"
#include "ScratchAddressBook.h"

class QPrintDialog;

/// Contacts in a database of their own and in a list like the address book's, in which they are checked.
/// There is no printer, so that reports are printed to PDF files. Boxes and print dialogs have to be
/// expected.
class ReportBook
{
public:
    ReportBook();
    ~ReportBook();

    /// Adds a contact with all its rows to the database and the list; returns its number.
    qint32 add(const QString &name);
    qint32 add(NameRow name, HomeRow home, BusinessRow business, const QStringList &eMails = {});
    /// Adds contacts of these names.
    void add(std::initializer_list<const char *> names);
    /// Adds a row to the list alone.
    void list(qint32 number, const QString &name);
    void setChecked(int row, bool checked) { rows.ListItems().setChecked(row, checked); }

    /// A print dialog comes and is accepted for the file \a name of the home folder.
    void expectPrint(const char *name = "a.pdf");
    void expectPrintDialog(std::function<void(QPrintDialog &)> act);
    void expectCancel();
    void expectError(int number, const char *description);
    qsizetype dialogsSeen() const { return frame.dialogs.seen().size(); }

    /// The program that printed() needs is installed.
    static bool canReadPages();
    /// The words of a printed file's pages, a blank between each two. Empty where there is no such file.
    QString printed(const char *name = "a.pdf") const;
    QStringList printedPages(const char *name = "a.pdf") const;
    /// The names of the printed files in the home folder, joined by "|".
    QString printedFiles() const;

    QByteArray detailFile() const { return report("recordtest.rtf"); }
    QByteArray summaryFile() const { return report("recordtestr.rtf"); }
    /// The detail file's lines, read as Windows-1252.
    QStringList detailLines() const;
    QStringList summaryLines() const;
    /// Its line that has \a words, from behind them on.
    QString detailLine(const char *words) const;

    FakeFrame frame;
    ScratchAddressBook book;
    ListView rows;

private:
    QByteArray report(const char *name) const;
};
