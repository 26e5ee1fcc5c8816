#pragma once

#include "WmfFont.h"

#include <QBrush>
#include <QPen>
#include <QRect>
#include <set>
#include <variant>
#include <vector>

/// The pens, brushes, fonts and regions that a metafile has made, by the numbers that it knows them by.
class WmfObjects
{
public:
    /// A palette only takes up its number: colours are never asked from it.
    struct Palette
    {};
    /// The rectangle around it, in units.
    using Region = QRect;
    using Object = std::variant<std::monostate, QPen, QBrush, WmfFont, Region, Palette>;

    /// \a object gets the lowest free number. There is room for 4,096; others are dropped.
    void add(Object object);
    /// Frees the number; where there is none, does nothing.
    void remove(int number);
    /// None where the number is free.
    const Object &at(int number) const;

private:
    std::vector<Object> m_objects;
    std::set<int> m_free; ///< below the size of the list
};
