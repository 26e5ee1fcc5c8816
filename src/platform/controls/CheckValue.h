#pragma once

class QCheckBox;

/// The state of a check box as a number: 0 cleared, 1 checked, 2 greyed.
namespace CheckValue {

int of(const QCheckBox &box);

/// Throws RuntimeError 380 for any other number; the box is then as before.
void set(QCheckBox &box, int value);

} // namespace CheckValue
