#pragma once

#include <QIcon>
#include <QString>

/// Where a list view reads rows when it shows them, so that a million rows need not be made before the first
/// one is seen. Rows and columns are counted from 0; only those that exist are asked for.
class ListRows
{
public:
    virtual ~ListRows() = default;

    /// Never changes.
    virtual int count() const = 0;
    /// Unique, or empty.
    virtual QString key(int row) const = 0;
    virtual QString text(int row, int column) const = 0;
    virtual QIcon icon(int row) const = 0;
};
