#include "Look.h"
#include "QtMessages.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QTextEdit>
#include <gtest/gtest.h>
#include <memory>

TEST(Look, ContextMenusShowNoKeysWhateverTheWindowsMenusHave)
{
    QtMessages::expect(QStringLiteral("quill-office-tools.svg")); // the program's own, not in this test
    Look::apply();
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
