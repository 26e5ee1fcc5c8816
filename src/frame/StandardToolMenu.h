#pragma once

#include "ToolMenuRow.h"

#include <QList>
#include <span>

class ChildForm;
class QMenu;

/// The menu items of the tool windows that call the frame. A window's whole menu is one table of rows: its
/// own ones, which its command table binds, and the rows below, as they are or renamed().
namespace StandardToolMenu {

using Runs = ToolMenuRow::Runs;

inline constexpr ToolMenuRow File{{0, "mnuFile", "&File", nullptr, 0, nullptr}};
inline constexpr ToolMenuRow NewDocument{
    {1, "mnuNewQuillWord", "New Quill &Word Document", nullptr, 0, "document-new"}, Runs::NewDocument};
inline constexpr ToolMenuRow Close{{1, "mnuClose", "&Close", nullptr, 0, "window-close"}, Runs::CloseWindow};
inline constexpr ToolMenuRow ExitTools{
    {1, "mnuexittools", "E&xit Quill-Office Tools", nullptr, 0, "application-exit"}, Runs::ExitTools};
inline constexpr ToolMenuRow Window{{0, "mnuWindow", "&Window", nullptr, 0, nullptr}, Runs::WindowMenu};
inline constexpr ToolMenuRow Cascade{{1, "mnuCascade", "&Cascade", nullptr, 0, nullptr}, Runs::Cascade};
inline constexpr ToolMenuRow TileHorizontal{{1, "mnuTileHorizontal", "Tile &Horizontal", nullptr, 0, nullptr},
                                            Runs::TileHorizontal};
inline constexpr ToolMenuRow TileVertical{{1, "mnuTileVertical", "Tile &Vertical", nullptr, 0, nullptr},
                                          Runs::TileVertical};
inline constexpr ToolMenuRow ArrangeIcons{{1, "mnuArrangeIcons", "Arrange &Icons", nullptr, 0, nullptr},
                                          Runs::ArrangeIcons};

/// The menus of level 0, owned by \a window, with the standard items bound.
QList<QMenu *> build(std::span<const ToolMenuRow> rows, ChildForm &window);

} // namespace StandardToolMenu
