#include "BookList.h"

#include "AddressDatabase.h"
#include "BookIcons.h"
#include "BookRows.h"
#include "BookTable.h"
#include "ListView.h"
#include "Recordset.h"
#include "RuntimeError.h"

namespace {

const QString contactKey = QStringLiteral("SrNo");
const QString tableKey = QStringLiteral("Item");
const QString nameCaption = QStringLiteral("Name");

/// Of the statements; the birth date is behind them.
enum Field { number, name, address, city, phone, mobile };

QList<ColumnHeader> contactColumns()
{
    return {{QStringLiteral("Col1"), nameCaption, 2400},
            {QStringLiteral("Col2"), QStringLiteral("Home Address"), 2100},
            {QStringLiteral("Col3"), QStringLiteral("City/Town"), 1500},
            {QStringLiteral("Col4"), QStringLiteral("Home Phone"), 1500},
            {QStringLiteral("Col5"), QStringLiteral("Mobile"), 1500},
            {QStringLiteral("Col6"), QStringLiteral("Birth Date"), 1500}};
}

/// Throws RuntimeError 94 where a text is NULL.
void requireTexts(const PackedRows &rows)
{
    for (qsizetype row = 0; row < rows.count(); ++row) {
        for (const int column : {name, address, city, phone, mobile}) {
            if (rows.isNull(row, column))
                throw RuntimeError(ErrorNumber::InvalidUseOfNull);
        }
    }
}

} // namespace

void BookList::showContacts(ListView &list, const QString &statement)
{
    Recordset rows;
    rows.open(statement, AddressConnection);
    requireTexts(rows.rows());
    list.setCheckboxes(true);
    list.setRows(contactColumns(),
                 std::make_unique<BookRows>(rows.rows(), contactKey, BookRows::Fields{name, address},
                                            BookIcons::contact()));
}

void BookList::showTable(ListView &list, const QString &table)
{
    Recordset rows;
    rows.open(QStringLiteral("select * from ") + table + QStringLiteral(" ORDER BY ") +
                  BookTable::of(table)->nameField,
              AddressConnection);
    list.setRows(
        {{QStringLiteral("Col1"), rows.fieldName(0), 800}, {QStringLiteral("Col2"), rows.fieldName(1), 2500}},
        std::make_unique<BookRows>(rows.rows(), tableKey, BookRows::Fields{number},
                                   BookIcons::ofTable(table)));
}

bool BookList::hasContacts(const ListView &list)
{
    return list.ListItems().columnCount() > 0 && list.ColumnHeaders(1).Text == nameCaption;
}

qint32 BookList::contactNumber(const QString &key)
{
    return key.mid(contactKey.size()).toInt();
}
