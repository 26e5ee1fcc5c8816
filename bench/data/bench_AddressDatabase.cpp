#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DailyCopies.h"
#include "DateFunctions.h"
#include "ManyContacts.h"
#include "Milliseconds.h"
#include "Paths.h"
#include "Recordset.h"
#include "TextCollation.h"
#include "Transaction.h"
#include "modGetFunctions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <sqlite3.h>
#include <vector>

// What the address book's windows ask of the database, with 32,000 contacts; beside each query the bare
// engine, which steps through the same rows and reads every field as bytes. Medians of 15 in wall
// and CPU time.

namespace {

constexpr int rounds = 15;
constexpr int reported = 1000; // contacts of a report

const QString view = QStringLiteral(
    "SELECT Names.SrNo, Names.Name, Home.hAddress, City.CityName, Home.hPhone1, Home.hMobile,names.dtOfBirth "
    "FROM Names,Home,City where Names.SrNo = Home.SrNo and City.CityID = Home.CityID");
const QString byName = QStringLiteral(" order by Names.Name");

struct Cost
{
    double wall; ///< milliseconds
    double cpu;  ///< of this process; says more on a busy machine
};

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2];
}

template<class Step>
Cost median(Step step)
{
    constexpr double perMillisecond = CLOCKS_PER_SEC / 1000.0;
    std::vector<double> wall;
    std::vector<double> cpu;
    for (int i = 0; i < rounds; ++i) {
        const std::clock_t before = std::clock();
        wall.push_back(milliseconds(step));
        cpu.push_back(double(std::clock() - before) / perMillisecond);
    }
    return {median(wall), median(cpu)};
}

/// Reads every field of every row as a window does.
qsizetype readAll(const QString &statement)
{
    Recordset rows;
    qsizetype letters = 0;
    for (rows.open(statement, AddressConnection); !rows.eof(); rows.moveNext()) {
        for (int i = 0; i < rows.fieldCount(); ++i)
            letters += rows.field(i).textOrEmpty().size();
    }
    return letters;
}

/// The bare engine on the same file.
class BareEngine
{
public:
    BareEngine()
    {
        ::sqlite3_open(AddressDatabase::path().toUtf8().constData(), &m_database);
        TextCollation::install(m_database);
        DateFunctions::install(m_database);
    }
    ~BareEngine() { ::sqlite3_close(m_database); }
    BareEngine(const BareEngine &) = delete;
    BareEngine &operator=(const BareEngine &) = delete;

    qsizetype readAll(const QString &statement) const
    {
        sqlite3_stmt *rows = nullptr;
        ::sqlite3_prepare_v2(m_database, statement.toUtf8().constData(), -1, &rows, nullptr);
        qsizetype bytes = 0;
        while (::sqlite3_step(rows) == SQLITE_ROW) {
            for (int i = 0; i < ::sqlite3_column_count(rows); ++i)
                bytes += ::sqlite3_column_text(rows, i) ? ::sqlite3_column_bytes(rows, i) : 0;
        }
        ::sqlite3_finalize(rows);
        return bytes;
    }

private:
    sqlite3 *m_database = nullptr;
};

void compare(const char *what, const QString &statement)
{
    const BareEngine engine;
    const Cost ours = median([&] { readAll(statement); });
    const Cost bare = median([&] { engine.readAll(statement); });
    std::printf("%-30s %8.2f ms, CPU %8.2f   bare %8.2f ms, CPU %8.2f   ratio %.2f\n", what, ours.wall,
                ours.cpu, bare.wall, bare.cpu, ours.cpu / bare.cpu);
}

template<class Step>
void show(const char *what, Step step)
{
    const Cost cost = median(step);
    std::printf("%-30s %8.2f ms, CPU %8.2f\n", what, cost.wall, cost.cpu);
}

void save(qint32 number)
{
    Transaction transaction(AddressConnection, Transaction::Unfinished::Keep);
    ContactRows::remove(number);
    ContactRows::addName(number, {.groupId = 1, .name = ManyContacts::word(number)});
    ContactRows::addEMails(number, {QStringLiteral("a@example.org")});
    ContactRows::addHome(number, {.cityId = GetCityId(ManyContacts::word(31 * 500))});
    ContactRows::addBusiness(number, {.cityId = GetCityId(QStringLiteral(".."))});
    transaction.commit();
}

void readForReport(qint32 number)
{
    const QString n = QString::number(number);
    ContactRows::name(number);
    ContactRows::eMails(number);
    ContactRows::home(number);
    ContactRows::business(number);
    readAll(
        QStringLiteral("Select State.StateName from State inner join (City inner join Home on City.CityID = "
                       "Home.CityID) on State.StateID = City.StateID where (((Home.SrNo)=") +
        n + QStringLiteral("))"));
    readAll(QStringLiteral(
                "Select State.StateName from (State inner join City ON State.StateID = City.StateID) inner "
                "join Business on City.CityID = Business.CityID where (((Business.SrNo)=") +
            n + QStringLiteral("))"));
}

/// The memory that a filled recordset keeps, in MiB.
double memoryOfView()
{
    const size_t before = ::mallinfo2().uordblks + ::mallinfo2().hblkhd;
    Recordset rows;
    rows.open(view + byName, AddressConnection);
    return double(::mallinfo2().uordblks + ::mallinfo2().hblkhd - before) / (1 << 20);
}

void measure()
{
    compare("all contacts by name", view + byName);
    compare("one letter", view + QStringLiteral(" and Names.Name like 'B%'") + byName);
    compare("one city", view + QStringLiteral(" and City.CityId=7") + byName);
    compare("one state",
            view + QStringLiteral(" and Home.CityId in(select cityid from city where stateid=7)") + byName);
    compare("birthdays of a day",
            view + QStringLiteral(" and day(dtOfBirth) =5 and month(dtofBirth) =9") + byName);
    show("next contact number", [] { NextSrNo(); });
    show("id of a city's name", [] { GetCityId(QStringLiteral("nowhere")); });
    show("save of a contact", [number = 0]() mutable { save(1 + number++); });
    show("reading 1,000 for a report", [] {
        for (qint32 number = 1; number <= reported; ++number)
            readForReport(number);
    });
    show("opening, with the check", [] { AddressDatabase::open(AddressDatabase::path()); });
    show("of that, the check", [] { AddressConnection.damage(); });
    show("copy of the day", [day = QDate(2000, 1, 1)]() mutable {
        DailyCopies::make(AddressConnection, day);
        day = day.addDays(1);
    });
    std::printf("%-30s %8.2f MiB\n", "memory of all contacts' rows", memoryOfView());
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(QDir::currentPath() +
                               QStringLiteral("/bench-XXXXXX")); // on a disk, not in memory
    qputenv("XDG_STATE_HOME", folder.path().toUtf8());
    Paths::setAppPath(folder.path());
    QFile::copy(QStringLiteral(QUILL_DATABASE), AddressDatabase::path());
    AddressDatabase::open(AddressDatabase::path());
    ManyContacts::add();
    std::printf("%d contacts, %.1f MB\n", ManyContacts::count,
                double(QFile(AddressDatabase::path()).size()) / 1e6);
    measure();
    AddressConnection.close();
    return 0;
}
