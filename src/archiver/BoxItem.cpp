#include "BoxItem.h"

#include <QAction>
#include <QCheckBox>

void BoxItem::toggle(QAction &item, QCheckBox &box)
{
    const bool ticked = !box.isChecked();
    item.setChecked(ticked); // the click has changed the mark by itself already
    box.setChecked(ticked);
}
