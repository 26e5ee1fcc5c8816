#include "AddressDatabase.h"
#include "ContactRows.h"
#include "Forms.h"
#include "Milliseconds.h"
#include "Paths.h"
#include "Transaction.h"
#include "frmAddress.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

// The contact editor with 32,000 contacts and 1,000 cities: opening it for a contact until it is painted, and
// a save, from the press of Ok until the window is gone; beside the save the bare steps in one transaction.
//
//     QT_QPA_PLATFORM=offscreen bench_frmAddress

namespace {

constexpr int contacts = 32000;
constexpr int cities = 1000;
constexpr int rounds = 200;

void fill()
{
    Transaction transaction(AddressConnection);
    for (int city = 2; city <= cities; ++city)
        AddressConnection.execute(QStringLiteral("insert into city values(%1,'City %1',1)").arg(city));
    for (int number = 1; number <= contacts; ++number) {
        const QString text = QString::number(number);
        ContactRows::addName(number, {.groupId = 1, .name = QStringLiteral("Name ") + text});
        ContactRows::addEMails(number, {text + QStringLiteral("@example.org")});
        ContactRows::addHome(number,
                             {.address = text, .cityId = qint16(1 + number % cities), .phone1 = text});
        ContactRows::addBusiness(number, {.address = text, .cityId = 1, .company = text});
    }
    transaction.commit();
}

frmAddress &opened(qint32 number)
{
    auto &editor = Forms::refer<frmAddress>();
    editor.load();
    editor.configureEdit(number);
    editor.showModeless();
    editor.repaint();
    return editor;
}

void saveBare(qint32 number)
{
    Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
    const NameRow name = ContactRows::name(number);
    const QStringList eMails = ContactRows::eMails(number);
    const HomeRow home = ContactRows::home(number);
    const BusinessRow business = ContactRows::business(number);
    ContactRows::remove(number);
    ContactRows::addName(number, name);
    ContactRows::addEMails(number, eMails);
    ContactRows::addHome(number, home);
    ContactRows::addBusiness(number, business);
    transaction.commit();
}

void print(const char *what, QList<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf("%-24s %8.2f %8.2f %8.2f\n", what, times[rounds / 2], times[rounds * 99 / 100], times.last());
}

void measure()
{
    QList<double> opening;
    QList<double> saving;
    QList<double> bare;
    for (int round = 0; round < rounds; ++round) {
        const qint32 number = 1 + round * (contacts / rounds);
        frmAddress *editor = nullptr;
        opening.append(milliseconds([&] { editor = &opened(number); }));
        editor->member<QLineEdit>(QStringLiteral("txtName")).setText(QStringLiteral("Changed"));
        saving.append(milliseconds([&] { editor->member<QPushButton>(QStringLiteral("cmdOK")).click(); }));
        bare.append(milliseconds([&] { saveBare(number); }));
        QCoreApplication::processEvents();
    }
    std::printf("%-24s %8s %8s %8s\n", "milliseconds", "median", "p99", "longest");
    print("opening for a contact", opening);
    print("saving by Ok", saving);
    print("the bare save", bare);
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
    Forms::registerWindow(QStringLiteral("frmAddress"), Forms::Instances::One, [] { return new frmAddress; });
    fill();
    measure();
    AddressConnection.close();
    return 0;
}
