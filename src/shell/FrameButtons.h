#pragma once

#include "ToolbarMenuRow.h"
#include "ToolbarRow.h"

#include <QString>
#include <optional>
#include <span>

/// The buttons of the frame's toolbar and their lists as constant rows, and the command that each key runs.
namespace FrameButtons {

std::span<const ToolbarRow> rows();
std::span<const ToolbarMenuRow> lists();

/// The name of the command that the button or list entry \a key runs; empty for one that runs none.
QString commandOf(const QString &key);
/// The title of the hint box that a click on the main part of a drop-down button shows.
std::optional<QString> hintTitle(const QString &key);

/// The last button of the word-processing group, which begins at 1.
inline constexpr int lastWordButton = 24;
/// The first button of that group that is hidden when no document is open.
inline constexpr int firstDocumentButton = 3;

} // namespace FrameButtons
