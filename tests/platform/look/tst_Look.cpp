#include "Look.h"
#include "Palettes.h"
#include "PrivateBus.h"
#include "QtMessages.h"
#include "StandInPortal.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QTest>
#include <QTextEdit>
#include <gtest/gtest.h>
#include <memory>

namespace {

void apply()
{
    QtMessages::expect(QStringLiteral("quill-office-tools.svg")); // the program's own, not in this test
    Look::apply();
}

bool hasColorsOf(const QPalette &expected)
{
    return QApplication::palette().color(QPalette::Window) == expected.color(QPalette::Window) &&
           QApplication::palette().color(QPalette::Text) == expected.color(QPalette::Text);
}

} // namespace

// First, because Qt keeps its connection to the session's bus.
TEST(Look, TheColoursAreThoseOfTheDesktopsSchemeAndFollowIt)
{
    ASSERT_TRUE(PrivateBus::isRunning());
    StandInPortal portal(1);
    apply();
    EXPECT_TRUE(hasColorsOf(Palettes::dark()));
    portal.turnTo(2);
    EXPECT_TRUE(QTest::qWaitFor([] { return hasColorsOf(Palettes::light()); }));
    portal.turnTo(1);
    EXPECT_TRUE(QTest::qWaitFor([] { return hasColorsOf(Palettes::dark()); }));
}

TEST(Look, TheColoursAreLightWhereTheDesktopHasNoScheme)
{
    apply();
    EXPECT_TRUE(hasColorsOf(Palettes::light()));
}

TEST(Look, ContextMenusShowNoKeysWhateverTheWindowsMenusHave)
{
    apply();
    QMainWindow window;
    auto *text = new QTextEdit(&window);
    window.setCentralWidget(text);
    window.addAction(new QAction(&window));
    window.actions().first()->setShortcut(Qt::CTRL | Qt::Key_Z);
    const std::unique_ptr<QMenu> menu(text->createStandardContextMenu());
    ASSERT_FALSE(menu->actions().isEmpty());
    for (const QAction *entry : menu->actions())
        EXPECT_FALSE(entry->text().contains(u'\t')) << qUtf8Printable(entry->text());
}
