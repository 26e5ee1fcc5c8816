#pragma once

#include <QList>
#include <utility>

class QLabel;
class QPushButton;
class QWidget;

/// What the two dialogs of reference data look like.
namespace ReferenceLayout {

using Field = std::pair<QLabel *, QWidget *>;

/// Lays out \a window: \a fields, each beside its label, above the two buttons.
void build(QWidget &window, const QList<Field> &fields, QPushButton &ok, QPushButton &cancel);

} // namespace ReferenceLayout
