#pragma once

#include "FormState.h"

class QWidget;

/// Place, size and state of \a window in twips, converted by the resolution of its screen. Each value is
/// rounded once, to the nearest pixel, when it is set. The frame that a window manager puts around a window
/// does not count; the title bar of a child window in an area does.
namespace WindowGeometry {

double left(const QWidget &window);
double top(const QWidget &window);
double width(const QWidget &window);
double height(const QWidget &window);

void setLeft(QWidget &window, double twips);
void setTop(QWidget &window, double twips);
void setWidth(QWidget &window, double twips);
void setHeight(QWidget &window, double twips);

FormState state(const QWidget &window);
/// A window that is not shown stays hidden and takes this state when it is shown.
void setState(QWidget &window, FormState state);

} // namespace WindowGeometry
