#include "BookWindow.h"

#include "AddressDatabase.h"
#include "ContactRows.h"
#include "Forms.h"
#include "Paths.h"
#include "PrintQt.h"
#include "frmAddress.h"
#include "frmBirthDays.h"
#include "frmPrintDocument.h"
#include "frmQuillAddressAbout.h"
#include "frmRegCity.h"
#include "frmRegister.h"
#include "frmquilladdresshelp.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

template<class Window>
void registerWindow()
{
    Forms::registerWindow(QString::fromLatin1(Window::staticMetaObject.className()), Forms::Instances::One,
                          [] { return new Window; });
}

void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// A file of the program's folder, which the build has put beside the tests.
void copyData(const QString &name)
{
    const QString target = Paths::appPath() + u'/' + name;
    QDir().mkpath(QFileInfo(target).path());
    ASSERT_TRUE(QFile::copy(QCoreApplication::applicationDirPath() + u'/' + name, target))
        << qPrintable(name);
}

void execute(const char *statement)
{
    AddressConnection.execute(QString::fromLatin1(statement));
}

void addContact(qint32 number, const char *name, quint8 group, qint16 city, std::optional<QDate> born,
                const HomeRow &home)
{
    HomeRow row = home;
    row.cityId = city;
    ContactRows::addName(number, {.groupId = group, .name = QString::fromLatin1(name), .birthDate = born});
    ContactRows::addHome(number, row);
    ContactRows::addBusiness(number, {.cityId = 1});
}

QModelIndex find(const QTreeView &tree, const QString &key)
{
    const QModelIndex first = tree.model()->index(0, 0);
    const auto found =
        tree.model()->match(first, Qt::UserRole, key, 1, Qt::MatchExactly | Qt::MatchRecursive);
    return found.value(0);
}

QModelIndex placeOf(const QAbstractItemView &pane, int row)
{
    return pane.model()->index(row - 1, 0);
}

} // namespace

BookWindow::BookWindow(Opened opened)
{
    for (const char *name : {"city.ico", "stateb.ico", "help/quilladdresshelp.rtf"})
        copyData(QString::fromLatin1(name));
    registerWindow<frmAddressBook>();
    registerWindow<frmAddress>();
    registerWindow<frmRegCity>();
    registerWindow<frmRegister>();
    registerWindow<frmBirthDays>();
    registerWindow<frmPrintDocument>();
    registerWindow<frmQuillAddressAbout>();
    registerWindow<frmquilladdresshelp>();
    addRows();
    if (opened == Opened::Yes)
        open();
}

BookWindow::~BookWindow()
{
    const QList<Form *> loaded = Forms::loaded();
    for (Form *form : loaded)
        form->unload();
    settle();
}

void BookWindow::addRows() const
{
    execute("insert into State values(2, 'Kent')");
    execute("insert into State values(3, 'Surrey')");
    execute("insert into City values(2, 'Dover', 2)");
    execute("insert into City values(3, 'Margate', 2)");
    execute("insert into City values(4, 'Woking', 3)");
    execute("insert into Groups values(2, 'Family')");
    execute("insert into Groups values(3, 'Work')");
    addContact(1, "Bea Dunn", 3, 4, {}, {.address = QStringLiteral("1 High Street")});
    addContact(2, "Anna Bell", 2, 2, QDate(1996, 2, 29),
               {.address = QStringLiteral("2 Castle Hill"),
                .phone1 = QStringLiteral("01304 1"),
                .phone2 = QStringLiteral("not shown"),
                .mobile = QStringLiteral("07700 2")});
    addContact(3, "Ben Cole", 3, 3, QDate(1990, 2, 28), {});
    addContact(4, "carl Bly", 1, 1, QDate(1985, 3, 1), {});
}

void BookWindow::open()
{
    auto &window = Forms::refer<frmAddressBook>();
    m_form = &window;
    window.showModeless();
    settle();
}

void BookWindow::load()
{
    auto &window = Forms::refer<frmAddressBook>();
    m_form = &window;
    window.load();
}

void BookWindow::clickNode(const char *key) const
{
    tree().EnsureVisible(QString::fromLatin1(key));
    const QRect place = tree().visualRect(find(tree(), QString::fromLatin1(key)));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place.center());
    settle();
}

void BookWindow::doubleClickNode(const char *key) const
{
    clickNode(key);
    const QRect place = tree().visualRect(find(tree(), QString::fromLatin1(key)));
    QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, place.center());
    settle();
}

void BookWindow::click(const char *button) const
{
    auto &found = control<QAbstractButton>(button);
    EXPECT_TRUE(found.isVisible() && found.isEnabled()) << button;
    QTest::mouseClick(&found, Qt::LeftButton, {}, {6, found.height() / 2}); // beside a list's arrow
    settle();
}

void BookWindow::clickLetter(char letter) const
{
    click(qPrintable(QStringLiteral("cmdChar_%1").arg(letter - 'A')));
}

void BookWindow::choose(const char *item) const
{
    EXPECT_TRUE(action(item).isEnabled()) << item;
    action(item).trigger();
    settle();
}

QAction &BookWindow::action(const char *name) const
{
    return *m_form->findChild<QAction *>(QString::fromLatin1(name));
}

int BookWindow::indexOf(const char *text) const
{
    for (int i = 1; i <= list().ListItems().Count(); ++i) {
        if (list().ListItems().Item(i).Text == QLatin1String(text))
            return i;
    }
    ADD_FAILURE() << "no row " << text;
    return 1;
}

void BookWindow::selectRow(const char *text) const
{
    list().setSelected(indexOf(text), true);
}

void BookWindow::doubleClickRow(const char *text) const
{
    auto &rows = static_cast<QAbstractItemView &>(pane());
    const QModelIndex index = placeOf(rows, indexOf(text));
    rows.scrollTo(index);
    const QPoint place = rows.visualRect(index).center();
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {}, place);
    settle();
}

void BookWindow::press(Qt::Key key) const
{
    QTest::keyClick(&pane(), key);
    settle();
}

void BookWindow::toggle(const char *text) const
{
    selectRow(text);
    press(Qt::Key_Space);
}

QString BookWindow::label() const
{
    return control<QLabel>("lblSel").text();
}

QString BookWindow::columns() const
{
    QStringList captions;
    for (int i = 1; i <= list().ListItems().columnCount(); ++i)
        captions << list().ColumnHeaders(i).Text;
    return captions.join(u'|');
}

QString BookWindow::names() const
{
    QStringList names;
    for (int i = 1; i <= list().ListItems().Count(); ++i)
        names << list().ListItems().Item(i).Text;
    return names.join(u'|');
}

QString BookWindow::checkedNames() const
{
    QStringList names;
    for (int i = 1; i <= list().ListItems().Count(); ++i) {
        if (list().ListItems().Item(i).Checked)
            names << list().ListItems().Item(i).Text;
    }
    return names.join(u'|');
}

QString BookWindow::row(const char *text) const
{
    const ListItem &item = list().ListItems().Item(indexOf(text));
    return (QStringList(item.Text) + item.SubItems).join(u'|');
}

QString BookWindow::commands() const
{
    const auto isEnabled = [this](std::initializer_list<const char *> items,
                                  std::initializer_list<const char *> buttons) {
        QList<bool> states;
        for (const char *item : items)
            states << action(item).isEnabled();
        for (const char *button : buttons)
            states << control<QWidget>(button).isEnabled();
        EXPECT_TRUE(states.count(true) == 0 || states.count(false) == 0) << "enabled in part";
        return states.first();
    };
    QString sets;
    if (isEnabled({"mnudelete", "mnuprintselected", "prtselected", "mnuselectrecords"},
                  {"cmddeleteselected", "deleteselected", "selectall", "deselectall"}))
        sets += u'A';
    if (isEnabled({"mnusummary", "prtsummary"}, {}))
        sets += u'B';
    return sets;
}
