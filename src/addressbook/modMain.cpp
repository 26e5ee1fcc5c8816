#include "modMain.h"

#include "ListView.h"
#include "ReferenceNames.h"

#include <QComboBox>

namespace {

/// An editable combo box shows no text, one that is not has no entry selected.
void empty(QComboBox &combo)
{
    combo.setCurrentIndex(-1);
    if (combo.isEditable())
        combo.clearEditText();
}

void fill(QComboBox &combo, const QStringList &names)
{
    combo.clear();
    combo.addItems(names);
    empty(combo);
}

bool hasEntry(const QComboBox &combo, const QString &text)
{
    for (int index = 0; index < combo.count(); ++index) {
        if (combo.itemText(index) == text)
            return true;
    }
    return false;
}

} // namespace

void FillCityCombo(QComboBox &combo)
{
    fill(combo, ReferenceNames::cities());
}

void FillStateCombo(QComboBox &combo)
{
    fill(combo, ReferenceNames::states());
}

void FillGroupCombo(QComboBox &combo)
{
    fill(combo, ReferenceNames::groups());
}

void ValidateCombo(QComboBox &combo, bool forceFirst)
{
    if (hasEntry(combo, combo.currentText()))
        return;
    if (forceFirst)
        combo.setCurrentIndex(0);
    else
        empty(combo);
}

void CheckAnySelected(const ListView &list)
{
    AnyChecked = 0;
    for (int i = 1; i <= list.ListItems().Count(); ++i) {
        if (list.ListItems().isChecked(i))
            AnyChecked = -1;
    }
}
