#include "ChoiceBox.h"
#include "DataError.h"
#include "ErrorNumberOf.h"
#include "HostileNames.h"
#include "ReferenceDialog.h"
#include "frmRegCity.h"

#include <QLabel>
#include <gtest/gtest.h>
#include <latch>
#include <thread>

namespace {

struct FrmRegCityTest : testing::Test
{
    void openNew()
    {
        dialog.load();
        dialog.form().setCaption(QStringLiteral("Add New City"));
        dialog.form().EditMode = QStringLiteral("New");
        dialog.show();
    }
    void openFor(qint16 city)
    {
        dialog.load().configureEdit(city);
        dialog.show();
    }
    QString city() const { return dialog.control<QLineEdit>("txtCity").text(); }
    QString state() const { return dialog.control<ChoiceBox>("cmbStates").currentText(); }
    QStringList cities() const { return dialog.rows("select * from City order by CityID"); }

    ReferenceDialog<frmRegCity> dialog{QStringLiteral("frmRegCity")};
};

struct FrmRegCityNames : FrmRegCityTest, testing::WithParamInterface<HostileName>
{};

const QString placeholder = QStringLiteral("1|..|1");
/// Takes long, but less long than a writer is waited for.
const QString longWork = QStringLiteral("create temp table T as with recursive N(i) as (select 1 union all "
                                        "select i+1 from N where i<1000000) select i from N");
const QString london = QStringLiteral("2|London|2");

} // namespace

TEST_F(FrmRegCityTest, ANewCityBeginsEmpty)
{
    openNew();
    EXPECT_EQ(dialog.form().Caption(), QStringLiteral("Add New City"));
    EXPECT_EQ(frmRegCity().Caption(), QStringLiteral("New City"));
    EXPECT_EQ(dialog.control<QLabel>("lblDisp").text(), QStringLiteral("City Name"));
    EXPECT_EQ(dialog.control<QLabel>("Label1").text(), QStringLiteral("County/ State/ Province"));
    EXPECT_EQ(city() + state(), QString());
    EXPECT_EQ(dialog.focus(), QStringLiteral("txtCity"));
    const auto &states = dialog.control<ChoiceBox>("cmbStates");
    ASSERT_EQ(states.count(), 2);
    EXPECT_EQ(states.itemText(0) + states.itemText(1), QStringLiteral("..Kent"));
}

TEST_F(FrmRegCityTest, AChangeShowsTheCity)
{
    openFor(2);
    EXPECT_EQ(dialog.form().Caption(), QStringLiteral("Edit City"));
    EXPECT_EQ(dialog.form().EditMode, QStringLiteral("Modify"));
    EXPECT_EQ(city(), QStringLiteral("London"));
    EXPECT_EQ(state(), QStringLiteral("Kent"));
}

TEST_F(FrmRegCityTest, ACityThatIsGoneCannotBeChanged)
{
    dialog.load();
    EXPECT_EQ(errorNumberOf([this] { dialog.form().configureEdit(9); }), DataError::NoCurrentRow);
}

TEST_F(FrmRegCityTest, ACityIsAdded)
{
    dialog.execute("insert into city values(7,'Bath',1)");
    openNew();
    dialog.type("txtCity", QStringLiteral(" Dover "));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.form().EditMode, QString());
    EXPECT_EQ(cities().last(), QStringLiteral("8|Dover|2"));
}

TEST_F(FrmRegCityTest, ReturnIsOkAndEscapeIsCancel)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.form().EditMode, QString());
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
    openNew();
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.press(Qt::Key_Return);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(cities().last(), QStringLiteral("3|Dover|2"));
}

TEST_F(FrmRegCityTest, IsShownModallyAboveTheAddressBook)
{
    dialog.frame.dialogs.expectWindow<frmRegCity>(QStringLiteral("frmRegCity"), [](frmRegCity &window) {
        auto &city = window.member<QLineEdit>(QStringLiteral("txtCity"));
        EXPECT_EQ(window.focusWidget(), &city);
        QTest::keyClicks(&city, QStringLiteral("!"));
        QTest::keyClick(&city, Qt::Key_Return);
    });
    QWidget addressBook;
    addressBook.show();
    dialog.load().configureEdit(2);
    dialog.form().showModal(&addressBook);
    EXPECT_EQ(cities().last(), QStringLiteral("2|London!|2"));
}

TEST_F(FrmRegCityTest, ANameIsAskedFor)
{
    openNew();
    for (const char *name : {"", "   "}) {
        dialog.type("txtCity", QString::fromLatin1(name));
        dialog.control<QWidget>("cmbStates").setFocus();
        dialog.expectBox(QStringLiteral("Enter City Name..."));
        dialog.click("cmdOK");
        EXPECT_EQ(dialog.focus(), QStringLiteral("txtCity"));
        EXPECT_TRUE(dialog.isOpen());
    }
}

TEST_F(FrmRegCityTest, AStateIsAskedFor)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.expectBox(QStringLiteral("State ? "));
    dialog.click("cmdOK");
    EXPECT_EQ(dialog.focus(), QStringLiteral("cmbStates"));
    dialog.type("cmbStates", QStringLiteral("Essex")); // emptied as the button takes the focus
    dialog.expectBox(QStringLiteral("State ? "));
    dialog.click("cmdOK");
    EXPECT_EQ(state(), QString());
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
}

TEST_F(FrmRegCityTest, AStateThatIsNotInTheListIsEmptiedWhenLeft)
{
    openNew();
    for (const char *typed : {"Essex", "kent", "Ken"}) {
        dialog.type("cmbStates", QString::fromLatin1(typed));
        dialog.press(Qt::Key_Tab);
        EXPECT_EQ(state(), QString()) << typed;
    }
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.press(Qt::Key_Tab);
    EXPECT_EQ(state(), QStringLiteral("Kent"));
}

/// Names are unique across all states, and case does not count.
TEST_F(FrmRegCityTest, ANameThatIsThereIsRefused)
{
    openNew();
    for (const char *name : {"London", "LONDON", " london "}) {
        dialog.type("cmbStates", QStringLiteral(".."));
        dialog.type("txtCity", QString::fromLatin1(name));
        dialog.expectBox(QStringLiteral("City Already Exists..."));
        dialog.press(Qt::Key_Return);
        EXPECT_TRUE(dialog.isOpen());
        EXPECT_EQ(dialog.focus(), QStringLiteral("txtCity"));
    }
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
}

TEST_F(FrmRegCityTest, RenamingToANameThatIsThereGoesThrough)
{
    dialog.execute("insert into city values(3,'Bath',1)");
    openFor(3);
    dialog.type("txtCity", QStringLiteral(" London "));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(cities(), QStringList({placeholder, london, QStringLiteral("3|London|2")}));
}

TEST_F(FrmRegCityTest, WithoutAModeOkOnlyCloses)
{
    dialog.load();
    dialog.show();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
}

TEST_F(FrmRegCityTest, EachActivationReadsTheStatesAnew)
{
    openFor(2);
    dialog.execute("Insert into State values(3,'Essex')");
    dialog.type("cmbStates", QStringLiteral("typed"));
    Form other(QStringLiteral("other"));
    other.showModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    dialog.activate();
    EXPECT_EQ(dialog.control<ChoiceBox>("cmbStates").count(), 3);
    EXPECT_EQ(state(), QStringLiteral("typed"));
}

TEST_F(FrmRegCityTest, AtMost50CharactersAreTyped)
{
    openNew();
    dialog.type("txtCity", QString(60, u'w'));
    EXPECT_EQ(city().size(), 50);
}

// ---- What ends the suite

TEST_F(FrmRegCityTest, ASingleQuoteIsASyntaxError)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("King's Lynn"));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.frame.fatal.expect(DataError::RejectedStatement, QStringLiteral("near \"s\": syntax error"));
    dialog.click("cmdOK");
    openFor(2);
    dialog.type("txtCity", QStringLiteral("King's Lynn"));
    dialog.frame.fatal.expect(DataError::RejectedStatement, QStringLiteral("near \"s\": syntax error"));
    dialog.click("cmdOK");
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
}

TEST_F(FrmRegCityTest, AnUnknownStateThatWasNotLeftIsRefused)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.type("cmbStates", QStringLiteral("Essex"));
    dialog.frame.fatal.expect(DataError::Engine,
                              QStringLiteral("A related record is required in table 'State'."));
    dialog.press(Qt::Key_Return);
    EXPECT_EQ(cities(), QStringList({placeholder, london}));
}

TEST_F(FrmRegCityTest, IdsEndAt32767)
{
    dialog.execute("insert into city values(32767,'Last',1)");
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.frame.fatal.expect(ErrorNumber::Overflow);
    dialog.click("cmdOK");
    EXPECT_EQ(dialog.rows("select count(*) from City"), QStringList(QStringLiteral("3")));
}

// ---- Names that a careless statement misreads

TEST_P(FrmRegCityNames, AreStored)
{
    const QString name = GetParam().text().trimmed().left(50);
    openNew();
    dialog.type("cmbStates", QStringLiteral("Kent"));
    dialog.control<QLineEdit>("txtCity").setText(GetParam().text());
    if (name == u"..")
        dialog.expectBox(QStringLiteral("City Already Exists..."));
    dialog.click("cmdOK");
    if (name == u"..")
        return;
    ASSERT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.rows("select CityName from City where CityID=3"), QStringList(name.trimmed()));
    openFor(3);
    EXPECT_EQ(city(), name.trimmed());
}

INSTANTIATE_TEST_SUITE_P(Texts, FrmRegCityNames, testing::ValuesIn(HostileNames::texts()),
                         HostileNames::what<testing::TestParamInfo<HostileName>>);

/// The name and the id are looked up when no other program can add a city any more.
TEST_F(FrmRegCityTest, AWriterOfAnotherProgramIsWaitedFor)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    std::latch isWriting(1);
    std::thread writer([&] {
        Connection other;
        other.open(dialog.book.path());
        other.execute(QStringLiteral("begin immediate"));
        other.execute(QStringLiteral("insert into city values(3,'Leeds',1)"));
        isWriting.count_down();
        other.execute(longWork);
        other.execute(QStringLiteral("commit"));
    });
    isWriting.wait();
    dialog.click("cmdOK");
    writer.join();
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(cities().mid(2), QStringList({QStringLiteral("3|Leeds|1"), QStringLiteral("4|Dover|2")}));
}

TEST_F(FrmRegCityTest, AWriterOfAnotherProgramIsReportedAndTheCityCanBeStoredLater)
{
    openNew();
    dialog.type("txtCity", QStringLiteral("Dover"));
    dialog.type("cmbStates", QStringLiteral("Kent"));
    Connection other;
    other.open(dialog.book.path());
    other.execute(QStringLiteral("begin immediate"));
    other.execute(QStringLiteral("insert into city values(3,'Leeds',1)"));
    dialog.frame.dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QStringLiteral("Another program is using the address database. Please try again."))
        .icon(QMessageBox::Warning);
    dialog.click("cmdOK");
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_FALSE(AddressConnection.isInTransaction());
    other.execute(QStringLiteral("commit"));
    dialog.click("cmdOK");
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(cities().mid(2), QStringList({QStringLiteral("3|Leeds|1"), QStringLiteral("4|Dover|2")}));
}
