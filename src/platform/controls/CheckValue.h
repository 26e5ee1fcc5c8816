#pragma once

class QCheckBox;

/// The number that a check box stands for: 0 cleared, 1 checked, 2 greyed.
namespace CheckValue {

int of(const QCheckBox &box);

/// Throws RuntimeError 380 for any other number; the box is then as before.
void set(QCheckBox &box, int value);

} // namespace CheckValue
