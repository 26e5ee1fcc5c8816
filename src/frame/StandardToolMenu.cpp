#include "StandardToolMenu.h"

#include "ChildForm.h"
#include "EventGate.h"
#include "Globals.h"
#include "MainFrame.h"
#include "MenuBuilder.h"
#include "mMain.h"

#include <vector>

namespace {

using Runs = ToolMenuRow::Runs;

void runStandard(Runs runs, ChildForm &window)
{
    switch (runs) {
    case Runs::Own:
    case Runs::WindowMenu:
        break;
    case Runs::NewDocument:
        mainFrame->LoadNewDoc();
        break;
    case Runs::CloseWindow:
        window.unload();
        break;
    case Runs::ExitTools:
        mainFrame->mnuFileExit_Click();
        break;
    case Runs::Cascade:
        CascadeChildren();
        break;
    case Runs::TileHorizontal:
        TileChildrenHorizontal();
        break;
    case Runs::TileVertical:
        TileChildrenVertical();
        break;
    case Runs::ArrangeIcons:
        ArrangeChildIcons();
        break;
    }
}

void bind(const ToolMenuRow &row, ChildForm &window)
{
    if (row.runs == Runs::Own)
        return;
    auto *action = window.findChild<QAction *>(QString::fromLatin1(row.item.name));
    if (row.runs == Runs::WindowMenu)
        on(action->menu(), &QMenu::aboutToShow, &window,
           [action] { mainFrame->fillWindowList(*action->menu()); });
    else
        on(action, &QAction::triggered, &window, [runs = row.runs, &window] { runStandard(runs, window); });
}

} // namespace

QList<QMenu *> StandardToolMenu::build(std::span<const ToolMenuRow> rows, ChildForm &window)
{
    std::vector<MenuRow> items;
    for (const ToolMenuRow &row : rows)
        items.push_back(row.item);
    const QList<QMenu *> menus = MenuBuilder::build(items, window);
    for (const ToolMenuRow &row : rows)
        bind(row, window);
    return menus;
}
