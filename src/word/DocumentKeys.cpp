#include "DocumentKeys.h"

#include "ErrorReports.h"
#include "EventGate.h"
#include "FindFlag.h"
#include "Globals.h"
#include "MainFrame.h"
#include "RichTextBox.h"
#include "Toolbar.h"
#include "clsFindandReplace.h"

#include <QAction>
#include <QShortcut>
#include <functional>

namespace {

struct ButtonKey
{
    QKeyCombination keys;
    const char *button;
};

constexpr ButtonKey buttonKeys[] = {{Qt::CTRL | Qt::Key_B, "Bold"}, {Qt::CTRL | Qt::Key_U, "Underline"}};

void bindKey(QWidget &place, QKeyCombination keys, std::function<void()> handler)
{
    auto *shortcut = new QShortcut(QKeySequence(keys), &place);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    on(shortcut, &QShortcut::activated, &place, std::move(handler));
}

} // namespace

void DocumentKeys::bindSearch(QWidget &place, RichTextBox &text, clsFindandReplace &find, Opening open)
{
    bindKey(place, Qt::CTRL | Qt::Key_F, [&text, &find, open] { (find.*open)(text); });
    bindKey(place, Qt::Key_F3, [&] { find.FindAgain(text, FindFlag::Down); });
    bindKey(place, Qt::SHIFT | Qt::Key_F3, [&] { find.FindAgain(text, 0); });
}

void DocumentKeys::bind(RichTextBox &text, clsFindandReplace &find, Toolbar &toolbar)
{
    bindSearch(text, text, find, &clsFindandReplace::ShowReplace);
    for (const ButtonKey &row : buttonKeys) {
        QAction &button = toolbar.button(QString::fromLatin1(row.button));
        bindKey(text, row.keys, [&button] { button.trigger(); });
    }
    bindKey(text, Qt::CTRL | Qt::Key_S, [] { resumeNext([] { mainFrame->SaveCurrentDocument(); }); });
    QAction &printAll = toolbar.listEntry(QStringLiteral("prtalldocument"));
    bindKey(text, Qt::CTRL | Qt::Key_P, [&printAll] { printAll.trigger(); });
    bindKey(text, Qt::CTRL | Qt::Key_Y, [&text] {
        if (!text.Locked())
            text.redo();
    });
}
