#include "CalculatorWindow.h"
#include "EdgeCases.h"
#include "Forms.h"
#include "Globals.h"
#include "PrintQt.h"
#include "ReferenceCalculator.h"
#include "StandInTool.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <gtest/gtest.h>
#include <random>

namespace {

struct CalculatorWindowEdgeTest : testing::TestWithParam<EdgeCase>
{};

struct CalculatorWindowTest : testing::Test
{
    CalculatorWindow window;

    QStringList itemsOf(int menu) const
    {
        QStringList items;
        for (const QAction *item : window.form().menus().at(menu)->actions())
            items << item->objectName() + u' ' + item->text();
        return items;
    }
    QString caption(const char *name, int index) const
    {
        return window.control<QAbstractButton>(name, index).text();
    }
    int row() const { return window.control<QListWidget>("listDecimals").currentRow(); }
};

QStringList listed(const char *reported)
{
    return QString::fromLatin1(reported).split(u',', Qt::SkipEmptyParts);
}

} // namespace

TEST_P(CalculatorWindowEdgeTest, ShowsAndReports)
{
    CalculatorWindow window;
    window.expectReports(listed(GetParam().reported));
    window.perform(QString::fromUtf8(GetParam().keys));
    EXPECT_EQ(window.field(), QString::fromLatin1(GetParam().field));
}

INSTANTIATE_TEST_SUITE_P(Cases, CalculatorWindowEdgeTest, testing::ValuesIn(edgeCases()),
                         [](const auto &row) { return row.param.name; });

TEST_F(CalculatorWindowTest, OpensBlankDownAndWithTwoPlaces)
{
    EXPECT_EQ(window.form().Caption(), QStringLiteral("Quill-Calculator"));
    EXPECT_EQ(window.field(), QString());
    EXPECT_EQ(window.control<QListWidget>("listDecimals").selectedItems().value(0)->text(),
              QStringLiteral("2"));
    EXPECT_TRUE(window.control<QRadioButton>("Option1", 1).isChecked());
    EXPECT_FALSE(window.control<QRadioButton>("Option1", 0).isChecked());
    EXPECT_TRUE(window.control<QLineEdit>("txtresult").hasFocus());
}

TEST_F(CalculatorWindowTest, HasItsCaptions)
{
    for (int i = 0; i <= 9; ++i)
        EXPECT_EQ(caption("cmddigit", i), QString::number(i));
    const QStringList actions = {QStringLiteral("="),  QStringLiteral("+"), QStringLiteral("-"),
                                 QStringLiteral("X"),  QStringLiteral("/"), QStringLiteral("% ="),
                                 QStringLiteral("Clr")};
    for (int i = 0; i < actions.size(); ++i)
        EXPECT_EQ(caption("cmdaction", i), actions[i]);
    EXPECT_EQ(caption("cmddecimal", -1), QString(QChar(0xB7)));
    EXPECT_EQ(caption("Option1", 0), QStringLiteral("Up"));
    EXPECT_EQ(caption("Option1", 1), QStringLiteral("Down"));
    EXPECT_EQ(caption("OKButton", -1), QStringLiteral("Close"));
    EXPECT_EQ(window.control<QLabel>("Label3").text(), QStringLiteral("Rounding"));
    EXPECT_EQ(window.control<QLineEdit>("txtresult").alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    const auto &list = window.control<QListWidget>("listDecimals");
    ASSERT_EQ(list.count(), 9);
    for (int i = 0; i < list.count(); ++i)
        EXPECT_EQ(list.item(i)->text(), QString::number(i));
    QStringList labels;
    for (const QLabel *label : window.form().findChildren<QLabel *>())
        labels << label->text();
    EXPECT_TRUE(labels.contains(QStringLiteral("Show results to")));
    EXPECT_TRUE(labels.contains(QStringLiteral("decimal places.")));
}

TEST_F(CalculatorWindowTest, FramesHoldDigitsActionsAndRounding)
{
    const auto holds = [this](const char *frame, const QWidget &control) {
        return window.control<QFrame>(frame).isAncestorOf(&control);
    };
    for (int i = 0; i <= 9; ++i)
        EXPECT_TRUE(holds("Frame1", window.control<QPushButton>("cmddigit", i)));
    EXPECT_TRUE(holds("Frame1", window.control<QPushButton>("cmddecimal")));
    for (int i = 0; i <= 6; ++i)
        EXPECT_TRUE(holds("Frame2", window.control<QPushButton>("cmdaction", i)));
    for (int i = 0; i <= 1; ++i)
        EXPECT_TRUE(holds("Frame3", window.control<QRadioButton>("Option1", i)));
    EXPECT_TRUE(holds("Frame3", window.control<QListWidget>("listDecimals")));
    EXPECT_TRUE(holds("Frame3", window.control<QLabel>("Label3")));
}

TEST_F(CalculatorWindowTest, EveryControlHasAName)
{
    for (const QWidget *control : window.form().findChildren<QWidget *>()) {
        if (control->focusPolicy() != Qt::NoFocus &&
            !control->objectName().startsWith(QLatin1String("qt_"))) {
            const auto *button = qobject_cast<const QAbstractButton *>(control);
            EXPECT_FALSE(control->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
                << qUtf8Printable(control->objectName());
        }
    }
    EXPECT_EQ(window.control<QPushButton>("cmddecimal").accessibleName(), QStringLiteral("Decimal point"));
    EXPECT_EQ(window.control<QPushButton>("cmdaction", 3).accessibleName(), QStringLiteral("Multiply"));
}

TEST_F(CalculatorWindowTest, TabFollowsTheRows)
{
    QStringList order;
    QTest::mouseClick(&window.control<QLineEdit>("txtresult"), Qt::LeftButton);
    for (int i = 0; i < 22; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              QStringLiteral("txtresult cmddigit_7 cmddigit_8 cmddigit_9 cmddigit_4 cmddigit_5 cmddigit_6 "
                             "cmddigit_1 cmddigit_2 cmddigit_3 cmddigit_0 cmddecimal cmdaction_4 cmdaction_6 "
                             "cmdaction_3 cmdaction_5 cmdaction_2 cmdaction_0 cmdaction_1 listDecimals "
                             "Option1_1 OKButton"));
}

TEST_F(CalculatorWindowTest, TabFindsTheOptionThatIsOn)
{
    window.perform(QStringLiteral("u"));
    auto &list = window.control<QListWidget>("listDecimals");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Tab);
    EXPECT_TRUE(window.control<QRadioButton>("Option1", 0).hasFocus());
}

TEST_F(CalculatorWindowTest, SpaceAndReturnPressTheKeyWithTheFocus)
{
    window.control<QPushButton>("cmddigit", 4).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    window.control<QPushButton>("cmddigit", 2).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.field(), QStringLiteral("42"));
}

TEST_F(CalculatorWindowTest, KeysTypedInTheFieldOnlyChangeItsText)
{
    auto &field = window.control<QLineEdit>("txtresult");
    QTest::keyClicks(&field, QStringLiteral("1+2=%"));
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(window.field(), QStringLiteral("1+2=%"));
    EXPECT_TRUE(window.isOpen());
}

TEST_F(CalculatorWindowTest, TheKeyboardChoosesRows)
{
    auto &list = window.control<QListWidget>("listDecimals");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(row(), 3);
    window.perform(QStringLiteral("{1.23456}="));
    EXPECT_EQ(window.field(), QStringLiteral("1.234"));
    QTest::keyClicks(&list, QStringLiteral("0"));
    EXPECT_EQ(row(), 0);
    window.perform(QStringLiteral("C{1.23456}="));
    EXPECT_EQ(window.field(), QStringLiteral("1"));
}

TEST_F(CalculatorWindowTest, ARowIsAlwaysChosen)
{
    auto &list = window.control<QListWidget>("listDecimals");
    const QRect chosen = list.visualItemRect(list.item(2));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, chosen.center());
    EXPECT_EQ(list.selectedItems(), QList<QListWidgetItem *>{list.item(2)});
    QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(list.selectedItems(), QList<QListWidgetItem *>{list.item(2)});
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      QPoint(1, list.viewport()->height() - 1)); // below or on the last row that shows
    EXPECT_EQ(list.selectedItems(), QList<QListWidgetItem *>{list.item(row())});
}

TEST_F(CalculatorWindowTest, AllRowsShowAtFirst)
{
    const auto &list = window.control<QListWidget>("listDecimals");
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(0))));
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualItemRect(list.item(8))));
}

TEST_F(CalculatorWindowTest, TheOptionsExcludeEachOther)
{
    window.perform(QStringLiteral("{1.239}u="));
    EXPECT_EQ(window.field(), QStringLiteral("1.24"));
    EXPECT_FALSE(window.control<QRadioButton>("Option1", 1).isChecked());
    window.perform(QStringLiteral("C{1.239}d="));
    EXPECT_EQ(window.field(), QStringLiteral("1.23"));
    EXPECT_FALSE(window.control<QRadioButton>("Option1", 0).isChecked());
}

TEST_F(CalculatorWindowTest, TheBoxesReplyIsKept)
{
    window.expectReports({QStringLiteral("point")});
    window.perform(QStringLiteral("..."));
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(CalculatorWindowTest, TheFieldIsBlankBehindTheErrorBox)
{
    QString behind = QStringLiteral("not seen");
    window.frame.dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        behind = window.field();
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
    window.perform(QStringLiteral("10/0+"));
    EXPECT_EQ(behind, QString());
}

TEST_F(CalculatorWindowTest, ATextBeyondAllMeasureIsRead)
{
    window.control<QLineEdit>("txtresult").setText(QString(30000, u'9'));
    window.perform(QStringLiteral("-"));
    window.control<QLineEdit>("txtresult").setText(QString(30000, u'8') + QStringLiteral("E99999999"));
    window.perform(QStringLiteral("="));
    EXPECT_EQ(window.field(), QStringLiteral("0")); // both are the largest number
}

TEST_F(CalculatorWindowTest, HasTheStandardToolMenu)
{
    ASSERT_EQ(window.form().menus().size(), 2);
    EXPECT_EQ(window.form().menus().at(0)->menuAction()->objectName(), QStringLiteral("mnuFile"));
    EXPECT_EQ(window.form().menus().at(1)->menuAction()->objectName(), QStringLiteral("mnuWindow"));
    EXPECT_EQ(itemsOf(0), QStringList({QStringLiteral("mnuNewQuillWord New Quill &Word Document"),
                                       QStringLiteral("mnuClose &Close"),
                                       QStringLiteral("mnuexittools E&xit Quill-Office Tools")}));
    EXPECT_EQ(itemsOf(1), QStringList({QStringLiteral("mnuCascade &Cascade"),
                                       QStringLiteral("mnuTileHorizontal Tile &Horizontal"),
                                       QStringLiteral("mnuTileVertical Tile &Vertical"),
                                       QStringLiteral("mnuArrangeIcons Arrange &Icons")}));
}

TEST_F(CalculatorWindowTest, ItsMenusCallTheFrame)
{
    const auto choose = [this](const char *name) {
        window.form().findChild<QAction *>(QString::fromLatin1(name))->trigger();
    };
    for (const char *item : {"mnuNewQuillWord", "mnuCascade", "mnuTileHorizontal", "mnuTileVertical",
                             "mnuArrangeIcons", "mnuexittools"})
        choose(item);
    EXPECT_EQ(window.frame.calls().join(u','),
              QStringLiteral("LoadNewDoc,Arrange 0,Arrange 1,Arrange 2,Arrange 3,mnuFileExit_Click"));
}

TEST_F(CalculatorWindowTest, OpenedTwiceItIsTheSameWindow)
{
    window.perform(QStringLiteral("12"));
    (new StandInTool(QStringLiteral("frmOther")))->showModeless();
    const frmCalculator *first = &window.form();
    window.open();
    EXPECT_EQ(&window.form(), first);
    EXPECT_EQ(&window.frame.active(), first);
    EXPECT_EQ(window.field(), QStringLiteral("12"));
}

TEST_F(CalculatorWindowTest, ClosedAndOpenedAgainItIsFresh)
{
    for (const char *close : {"OKButton", "mnuClose"}) {
        window.perform(QStringLiteral("u[5]200+10%1.5"));
        window.closeBy(close);
        EXPECT_FALSE(window.isOpen()) << close;
        EXPECT_TRUE(Forms::named(QStringLiteral("frmCalculator")).isEmpty()) << close;
        window.open();
        EXPECT_EQ(window.field(), QString());
        EXPECT_EQ(row(), 2);
        EXPECT_TRUE(window.control<QRadioButton>("Option1", 1).isChecked());
        window.perform(QStringLiteral("1.239="));
        EXPECT_EQ(window.field(), QStringLiteral("1.23"));
    }
}

TEST_F(CalculatorWindowTest, RandomKeysGiveTheReferenceResults)
{
    const QStringList texts = {QString(), QStringLiteral("12abc"), QStringLiteral("-7.5"),
                               QStringLiteral("1E+3"), QStringLiteral("1E300")};
    std::mt19937 random(11);
    const auto below = [&](std::size_t limit) { return int(random() % limit); };
    ReferenceCalculator reference;
    for (int i = 0; i < 400; ++i) {
        const int choice = below(100);
        CalculatorStep step = {CalculatorStep::Digit, below(10), {}};
        if (choice >= 90)
            step = {CalculatorStep::Type, 0, texts[below(std::size_t(texts.size()))]};
        else if (choice >= 86)
            step = {CalculatorStep::Option, below(2), {}};
        else if (choice >= 80)
            step = {CalculatorStep::Decimals, below(9), {}};
        else if (choice >= 45)
            step = {CalculatorStep::Action, below(choice > 76 ? 7 : 6), {}};
        else if (choice >= 38)
            step = {CalculatorStep::Point, 0, {}};
        const qsizetype before = reference.reported.size();
        reference.perform(step);
        window.expectReports(reference.reported.mid(before));
        window.perform(step);
        ASSERT_FALSE(HasFailure()); // a box was not the expected one
        ASSERT_EQ(window.field(), reference.txtresult) << i << ": " << qUtf8Printable(step.describe());
    }
    EXPECT_EQ(window.frame.dialogs.seen().size(), reference.reported.size());
}
