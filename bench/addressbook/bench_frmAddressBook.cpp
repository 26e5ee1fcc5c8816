#include "AddressDatabase.h"
#include "ContactQuery.h"
#include "Forms.h"
#include "ListView.h"
#include "ListedContacts.h"
#include "ManyContacts.h"
#include "Milliseconds.h"
#include "Paths.h"
#include "Recordset.h"
#include "TreeView.h"
#include "frmAddressBook.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <malloc.h>
#include <vector>

// The address book's window with 32,000 contacts, each step until it is painted; beside what shows contacts
// the statement alone, whose rows are read into a recordset. Medians of 9, by turns, of the time that a
// processor is busy.
//
//     QT_QPA_PLATFORM=offscreen bench_frmAddressBook

namespace {

constexpr int rounds = 9;

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[rounds / 2];
}

template<class Step>
double timed(Step step)
{
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i)
        times.push_back(processorMilliseconds([&] { step(i); }));
    return median(std::move(times));
}

frmAddressBook &open()
{
    auto &window = Forms::refer<frmAddressBook>();
    window.showModeless();
    (void)QTest::qWaitForWindowExposed(&window);
    window.repaint();
    return window;
}

void close(frmAddressBook &window)
{
    window.unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void query(const QString &filter)
{
    Recordset rows;
    rows.open(ContactQuery::inOrder(ContactQuery::all(), filter), AddressConnection);
}

struct Parts
{
    frmAddressBook &window;
    TreeView &tree = window.member<TreeView>(QStringLiteral("Tv"));
    ListView &list = window.member<ListView>(QStringLiteral("Lv"));

    void paint() const { static_cast<QAbstractScrollArea *>(list.currentWidget())->viewport()->repaint(); }
    void clickRoot() const
    {
        const QPoint place = tree.visualRect(tree.model()->index(0, 0)).center();
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
        paint();
    }
    void clickLetter(int index) const
    {
        window.member<QPushButton>(QStringLiteral("cmdChar_%1").arg(index)).click();
        paint();
    }
    void showBirthdays() const
    {
        window.NameFilter = ContactQuery::birthdayFilter({2024, 9, 5});
        window.BaseQuery = ContactQuery::all();
        window.fillAddresses();
        paint();
    }
};

void compare(const char *what, const QString &filter, const std::function<void(int)> &step)
{
    const double shown = timed(step);
    const double bare = timed([&](int) { query(filter); });
    std::printf("%-34s %8.2f ms   statement %8.2f ms   ratio %.2f\n", what, shown, bare, shown / bare);
}

void show(const char *what, double ms)
{
    std::printf("%-34s %8.2f ms\n", what, ms);
}

double used()
{
    const auto info = ::mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1 << 20);
}

void measure(const Parts &parts)
{
    parts.list.ListItems().Clear();
    const double before = used();
    parts.clickRoot();
    std::printf("%-34s %8.2f MiB\n", "memory of the filled list", used() - before);
    compare("click on all contacts", {}, [&](int) { parts.clickRoot(); });
    compare("letter", ContactQuery::letterFilter(1), [&](int) { parts.clickLetter(1); });
    compare("birthdays of a day", ContactQuery::birthdayFilter({2024, 9, 5}),
            [&](int) { parts.showBirthdays(); });
    parts.clickRoot();
    QWidget *pane = parts.list.currentWidget();
    show("find by a typed letter", timed([&](int i) {
             QTest::keyClick(pane, i % 2 ? Qt::Key_T : Qt::Key_K);
             QTest::keyClick(pane, Qt::Key_Home);
             parts.paint();
         }));
    show("all checked or unchecked", timed([&](int i) {
             ListedContacts::setAllChecked(parts.list, i % 2 == 0);
             parts.paint();
         }));
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QTemporaryDir folder(QDir::currentPath() +
                               QStringLiteral("/bench-XXXXXX")); // on a disk, not in memory
    qputenv("XDG_STATE_HOME", folder.path().toUtf8());
    Paths::setAppPath(folder.path());
    QFile::copy(QStringLiteral(QUILL_DATABASE), AddressDatabase::path());
    AddressDatabase::open(AddressDatabase::path());
    ManyContacts::add();
    Forms::registerWindow(QStringLiteral("frmAddressBook"), Forms::Instances::One,
                          [] { return new frmAddressBook; });
    close(open()); // which also makes the copy of the day
    show("opening", timed([](int) { close(open()); }));
    show("of that, the database", timed([](int) { OpenAddressDatabase(); }));
    show("of that, the check", timed([](int) { AddressConnection.damage(); }));
    measure({open()});
    AddressConnection.close();
    return 0;
}
