#pragma once

class QColor;

/// How well one color is seen on the other: from 1, not at all, to 21, black on white. Symbols need 3,
/// text 4.5.
double contrast(const QColor &a, const QColor &b);
