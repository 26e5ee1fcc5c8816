#pragma once

class QDialog;

/// Shows \a dialog and returns its result once it has been answered. Its owner lives until then, also where
/// it is unloaded meanwhile.
int showDialog(QDialog &dialog);
