#include "Forms.h"
#include "RunningSuite.h"
#include "StandInTool.h"
#include "Toolbar.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

enum class Way { Key, Menu, Button };

struct Command
{
    const char *item;
    const char *button;
    Qt::Key key;
};

constexpr Command undo = {"mnuEditUndo", "undo", Qt::Key_Z};
constexpr Command cut = {"mnuEditCut", "Cut", Qt::Key_X};
constexpr Command copy = {"mnuEditCopy", "Copy", Qt::Key_C};
constexpr Command paste = {"mnuEditPaste", "Paste", Qt::Key_V};

/// The suite with "one" typed and selected in "Document 1" and "ab" on the clipboard.
struct Desk
{
    RunningSuite suite;
    QLineEdit *field = nullptr;

    Desk()
    {
        suite.type(QStringLiteral("one"));
        suite.text().selectAll();
        QGuiApplication::clipboard()->setText(QStringLiteral("ab"));
    }
    void openTool(std::function<QLineEdit *(QWidget &)> addField)
    {
        const QString name = QStringLiteral("frmStandIn");
        Forms::registerWindow(name, Forms::Instances::One, [this, name, addField] {
            auto *tool = new StandInTool(name);
            field = addField(*tool);
            return tool;
        });
        Forms::refer(name).showModeless();
        field->setFocus();
        QTest::keyClicks(field, QStringLiteral("two"));
        field->selectAll();
    }
    void run(const Command &command, Way way) const
    {
        QAction &button = suite.frame().tbToolBar().button(QString::fromLatin1(command.button));
        if (way == Way::Key)
            QTest::keyClick(suite.frame().windowHandle(), command.key, Qt::ControlModifier);
        else if (way == Way::Menu)
            suite.choose(command.item);
        else if (button.isVisible())
            suite.press(command.button);
        else
            button.trigger();
    }
    /// Whatever the last command left to be done later is done behind it.
    static void settle()
    {
        for (int round = 0; round < 20; ++round)
            QCoreApplication::processEvents();
    }
    /// The beginnings of the documents, the field and the clipboard.
    QStringList state() const
    {
        QStringList texts;
        for (const Form *document : Forms::named(QStringLiteral("frmDocument")))
            texts << document->member<RichTextBox>(QStringLiteral("rtfTextBox")).Text().left(6);
        if (field)
            texts << field->text();
        return texts << QGuiApplication::clipboard()->text();
    }
};

void nowhereElse(Desk &)
{}

void lineEdit(Desk &desk)
{
    desk.openTool([](QWidget &tool) { return new QLineEdit(&tool); });
}

void comboBox(Desk &desk)
{
    desk.openTool([](QWidget &tool) {
        auto *box = new QComboBox(&tool);
        box->setEditable(true);
        return box->lineEdit();
    });
}

void withinAControl(Desk &desk)
{
    lineEdit(desk);
    auto *part = new QWidget(desk.field);
    part->show();
    part->setFocus(Qt::PopupFocusReason); // which leaves the selection
    ASSERT_TRUE(part->hasFocus());
}

void readOnlyField(Desk &desk)
{
    desk.openTool([](QWidget &tool) { return new QLineEdit(&tool); });
    desk.field->setReadOnly(true);
}

void lockedTips(Desk &desk)
{
    desk.suite.choose("mnutipsandtricks");
    desk.suite.text().setSelLength(4);
}

void minimised(Desk &desk)
{
    desk.suite.active().parentWidget()->showMinimized();
}

void nothingOpen(Desk &desk)
{
    desk.suite.dialogs
        .expectBox(QStringLiteral("Save Changes?..."), QStringLiteral("Save Changes to Document 1"))
        .press(QMessageBox::No);
    desk.suite.choose("mnuFileClose");
}

struct Place
{
    const char *name;
    void (*prepare)(Desk &desk);
    QStringList undone, cut, copied, pasted;
};

struct EditCommandsTest : testing::TestWithParam<Place>
{
    static void expectEachWay(const Command &command, const QStringList &expected)
    {
        for (const Way way : {Way::Key, Way::Menu, Way::Button}) {
            SCOPED_TRACE(testing::Message() << command.item << " by way " << int(way));
            Desk desk;
            GetParam().prepare(desk);
            desk.run(command, way);
            EXPECT_EQ(desk.state(), expected);
            Desk::settle();
            EXPECT_EQ(desk.state(), expected) << "later";
            expectNothingInTheNextDocument(desk);
        }
    }
    static void expectNothingInTheNextDocument(const Desk &desk)
    {
        desk.suite.choose("mnuFileNew");
        desk.suite.type(QStringLiteral("x"));
        Desk::settle();
        EXPECT_EQ(desk.suite.text().Text(), QStringLiteral("x"));
    }
};

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList all;
    for (const char *text : texts)
        all << QString::fromLatin1(text);
    return all;
}

} // namespace

TEST_P(EditCommandsTest, UndoTakesBackWhatTheFocusedControlDid)
{
    expectEachWay(undo, GetParam().undone);
}

TEST_P(EditCommandsTest, CutMovesTheSelectionToTheClipboard)
{
    expectEachWay(cut, GetParam().cut);
}

TEST_P(EditCommandsTest, CopyPutsTheSelectionOnTheClipboard)
{
    expectEachWay(copy, GetParam().copied);
}

TEST_P(EditCommandsTest, PasteInsertsIntoTheActiveDocumentAndTheFocusedControl)
{
    expectEachWay(paste, GetParam().pasted);
}

INSTANTIATE_TEST_SUITE_P(
    Places, EditCommandsTest,
    testing::Values(
        Place{"Document", nowhereElse, list({"", "ab"}), list({"", "one"}), list({"one", "one"}),
              list({"abab", "ab"})},
        Place{"LineEdit", lineEdit, list({"one", "", "ab"}), list({"one", "", "two"}),
              list({"one", "two", "two"}), list({"one", "ab", "ab"})},
        Place{"ComboBox", comboBox, list({"one", "", "ab"}), list({"one", "", "two"}),
              list({"one", "two", "two"}), list({"one", "ab", "ab"})},
        Place{"WithinAControl", withinAControl, list({"one", "", "ab"}), list({"one", "", "two"}),
              list({"one", "two", "two"}), list({"one", "ab", "ab"})},
        Place{"ReadOnlyField", readOnlyField, list({"one", "two", "ab"}), list({"one", "two", "ab"}),
              list({"one", "two", "two"}), list({"one", "two", "ab"})},
        Place{"LockedTips", lockedTips, list({"one", "Tips a", "ab"}), list({"one", "Tips a", "ab"}),
              list({"one", "Tips a", "Tips"}), list({"one", "Tips a", "ab"})},
        Place{"Minimised", minimised, list({"one", "ab"}), list({"one", "ab"}), list({"one", "ab"}),
              list({"ab", "ab"})},
        Place{"NothingOpen", nothingOpen, list({"ab"}), list({"ab"}), list({"ab"}), list({"ab"})}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(EditCommands, TheMenuWorksByItsLetters)
{
    const Desk desk;
    QTest::keyClick(desk.suite.frame().windowHandle(), Qt::Key_E, Qt::AltModifier);
    QTest::keyClick(desk.suite.frame().windowHandle(), Qt::Key_P);
    Desk::settle();
    EXPECT_EQ(desk.state(), list({"abab", "ab"}));
}
