#include "MenuBuilder.h"

#include "WindowIcons.h"

namespace {

/// A row followed by a deeper one is a menu, as is every row of the bar.
bool opensMenu(std::span<const MenuRow> rows, std::size_t index)
{
    return rows[index].level == 0 || (index + 1 < rows.size() && rows[index + 1].level > rows[index].level);
}

void applyRow(QAction &action, const MenuRow &row, WindowIcons &icons)
{
    action.setObjectName(QString::fromLatin1(row.name));
    action.setMenuRole(QAction::NoRole);
    action.setVisible(!(row.flags & MenuRow::Hidden));
    action.setEnabled(!(row.flags & MenuRow::Disabled));
    if (row.flags & MenuRow::Checked) {
        action.setCheckable(true);
        action.setChecked(true);
    }
    if (row.shortcut)
        action.setShortcut(QKeySequence(QString::fromLatin1(row.shortcut), QKeySequence::PortableText));
    if (row.icon)
        icons.add(action, QString::fromLatin1(row.icon));
}

} // namespace

QList<QMenu *> MenuBuilder::build(std::span<const MenuRow> rows, QWidget &owner)
{
    auto &icons = *new WindowIcons(owner);
    QList<QMenu *> open; // the menu that each level is being filled into
    QList<QMenu *> bar;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuRow &row = rows[i];
        const QString caption = QString::fromUtf8(row.caption);
        open.resize(row.level);
        if (opensMenu(rows, i)) {
            auto *menu = new QMenu(caption, &owner);
            if (open.isEmpty())
                bar.append(menu);
            else
                open.last()->addMenu(menu);
            open.append(menu);
            applyRow(*menu->menuAction(), row, icons);
            if (row.flags & MenuRow::Command)
                menu->menuAction()->setMenu<QMenu *>(nullptr);
        } else {
            QAction *item = row.flags & MenuRow::Separator ? open.last()->addSeparator()
                                                           : open.last()->addAction(caption);
            applyRow(*item, row, icons);
        }
    }
    return bar;
}
