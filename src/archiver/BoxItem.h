#pragma once

class QAction;
class QCheckBox;

/// A menu item that changes a check box.
namespace BoxItem {

/// Ticks both where \a box is clear, else clears both.
/// Intended: a click on the box itself leaves the item's mark as it was.
void toggle(QAction &item, QCheckBox &box);

} // namespace BoxItem
