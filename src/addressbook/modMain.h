#pragma once

#include <QtGlobal>

class ListView;
class QComboBox;

// The steps that several windows of the address book share.

/// Fill a combo box with the names of all cities, states or groups, and leave no text in it. They throw
/// RuntimeError with the numbers of DataError.
void FillCityCombo(QComboBox &combo);
void FillStateCombo(QComboBox &combo);
void FillGroupCombo(QComboBox &combo);

/// Where the combo box's text is not exactly an entry of its list, selects the first entry, or without
/// \a forceFirst empties the text.
void ValidateCombo(QComboBox &combo, bool forceFirst);

/// What CheckAnySelected() has found: 0 or -1.
inline qint16 AnyChecked = 0;

/// Sets AnyChecked to -1 where a row of \a list is checked, else to 0.
void CheckAnySelected(const ListView &list);
