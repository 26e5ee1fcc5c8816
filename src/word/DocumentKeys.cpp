#include "DocumentKeys.h"

#include "EventGate.h"
#include "FindFlag.h"
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

constexpr ButtonKey buttonKeys[] = {
    {Qt::CTRL | Qt::Key_S, "Save"}, {Qt::CTRL | Qt::Key_B, "Bold"}, {Qt::CTRL | Qt::Key_U, "Underline"}};

void bindKey(RichTextBox &text, QKeyCombination keys, std::function<void()> handler)
{
    auto *shortcut = new QShortcut(QKeySequence(keys), &text);
    shortcut->setContext(Qt::WidgetShortcut);
    on(shortcut, &QShortcut::activated, &text, std::move(handler));
}

} // namespace

void DocumentKeys::bindSearch(RichTextBox &text, clsFindandReplace &find, Opening open)
{
    bindKey(text, Qt::CTRL | Qt::Key_F, [&text, &find, open] { (find.*open)(text); });
    bindKey(text, Qt::Key_F3, [&] { find.FindAgain(text, FindFlag::Down); });
    bindKey(text, Qt::SHIFT | Qt::Key_F3, [&] { find.FindAgain(text, 0); });
}

void DocumentKeys::bind(RichTextBox &text, clsFindandReplace &find, Toolbar &toolbar)
{
    bindSearch(text, find, &clsFindandReplace::ShowReplace);
    for (const ButtonKey &row : buttonKeys) {
        QAction &button = toolbar.button(QString::fromLatin1(row.button));
        bindKey(text, row.keys, [&button] { button.trigger(); });
    }
    QAction &printAll = toolbar.listEntry(QStringLiteral("prtalldocument"));
    bindKey(text, Qt::CTRL | Qt::Key_P, [&printAll] { printAll.trigger(); });
    bindKey(text, Qt::CTRL | Qt::Key_Y, [&text] {
        if (!text.Locked())
            text.redo();
    });
}
