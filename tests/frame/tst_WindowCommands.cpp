#include "WindowCommands.h"

#include "ErrorNumberOf.h"
#include "Named.h"
#include "RuntimeError.h"
#include "Toolbar.h"

#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// A window with an item, a toolbar key and a button of one name, and an array of buttons.
class CommandWindow : public QWidget
{
public:
    CommandWindow()
    {
        item->setObjectName(QStringLiteral("Save"));
        sameItem->setObjectName(QStringLiteral("Save"));
        static constexpr ToolbarRow keys[] = {{1, "Save", "document-save", "Save"},
                                              {2, "Other", nullptr, "Other"}};
        toolbar->setButtons(keys);
        named("Save", button);
        for (int i = 0; i < 3; ++i)
            digits << named({"cmddigit", i}, new QPushButton(this));
    }

    void Save() { ran << QStringLiteral("save"); }
    void digit(int index) { ran << QString::number(index); }
    void bind(const char *name) { WindowCommands::bind(*this, {{name, &CommandWindow::Save}}); }
    void bindArray(const char *name) { WindowCommands::bind(*this, {{name, &CommandWindow::digit}}); }

    QMenu *menu = new QMenu(this);
    QAction *item = menu->addAction(QStringLiteral("&Save"));
    QAction *sameItem = menu->addAction(QStringLiteral("&Save"));
    Toolbar *toolbar = new Toolbar(this);
    QPushButton *button = new QPushButton(this);
    QList<QPushButton *> digits;
    QStringList ran;
};

} // namespace

TEST(WindowCommands, OneRowServesTheItemTheKeyAndTheButton)
{
    CommandWindow window;
    window.bind("Save");
    window.item->trigger();
    EXPECT_EQ(window.ran.size(), 1);
    window.button->click();
    EXPECT_EQ(window.ran.size(), 2);
    window.toolbar->findChild<QToolButton *>(QStringLiteral("Save"))->click();
    EXPECT_EQ(window.ran.size(), 3);
    window.toolbar->findChild<QToolButton *>(QStringLiteral("Other"))->click();
    EXPECT_EQ(window.ran.size(), 3);
    window.sameItem->trigger();
    EXPECT_EQ(window.ran.size(), 4);
}

TEST(WindowCommands, ARowOfAnArrayGivesTheIndex)
{
    CommandWindow window;
    window.bindArray("cmddigit");
    for (QPushButton *digit : window.digits)
        digit->click();
    EXPECT_EQ(window.ran, QStringList({QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2")}));
}

TEST(WindowCommands, AnUnknownNameIsRefused)
{
    CommandWindow window;
    EXPECT_EQ(errorNumberOf([&] { window.bind("Sav"); }), ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { window.bindArray("cmddigits"); }), ErrorNumber::NoSuchMember);
    EXPECT_EQ(errorNumberOf([&] { window.bindArray("Save"); }), ErrorNumber::NoSuchMember);
}
