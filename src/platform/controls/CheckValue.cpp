#include "CheckValue.h"

#include "RuntimeError.h"

#include <QCheckBox>

int CheckValue::of(const QCheckBox &box)
{
    switch (box.checkState()) {
    case Qt::Checked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    default:
        return 0;
    }
}

void CheckValue::set(QCheckBox &box, int value)
{
    switch (value) {
    case 0:
        box.setCheckState(Qt::Unchecked);
        break;
    case 1:
        box.setCheckState(Qt::Checked);
        break;
    case 2:
        box.setCheckState(Qt::PartiallyChecked);
        break;
    default:
        throw RuntimeError(ErrorNumber::InvalidPropertyValue, {}, QString::number(value));
    }
}
