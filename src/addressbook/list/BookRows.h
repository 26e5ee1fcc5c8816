#pragma once

#include "ListRows.h"
#include "PackedRows.h"

/// The rows of a statement as rows of the address book's list. The first field is a row's number, which is in
/// its key.
class BookRows : public ListRows
{
public:
    struct Fields
    {
        int first;        ///< in the list's first column; the others follow it
        int address = -1; ///< whose lines follow one another in the row; -1 for none
    };

    BookRows(const PackedRows &rows, const QString &keyPrefix, const Fields &fields, const QIcon &icon);

    int count() const override;
    QString key(int row) const override;
    /// A NULL is empty.
    QString text(int row, int column) const override;
    QIcon icon(int) const override { return m_icon; }

private:
    PackedRows m_rows;
    QString m_keyPrefix;
    Fields m_fields;
    QIcon m_icon;
};
