#include "BookList.h"

#include "AddressDatabase.h"
#include "BookIcons.h"
#include "ListView.h"
#include "Recordset.h"

#include <QSet>

namespace {

const QString contactKey = QStringLiteral("SrNo");
const QString nameCaption = QStringLiteral("Name");

enum Field { number, name, address, city, phone, mobile, birthDate };

QList<ColumnHeader> contactColumns()
{
    return {{QStringLiteral("Col1"), nameCaption, 2400},
            {QStringLiteral("Col2"), QStringLiteral("Home Address"), 2100},
            {QStringLiteral("Col3"), QStringLiteral("City/Town"), 1500},
            {QStringLiteral("Col4"), QStringLiteral("Home Phone"), 1500},
            {QStringLiteral("Col5"), QStringLiteral("Mobile"), 1500},
            {QStringLiteral("Col6"), QStringLiteral("Birth Date"), 1500}};
}

/// In a row the lines of an address follow one another.
QString oneLine(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(u'\r', u' ').replace(u'\n', u' ');
}

ListItem contactOf(const Recordset &row, const QIcon &icon, QSet<QString> &cities)
{
    const FieldValue born = row.field(birthDate);
    const QString cityName = *cities.insert(row.field(city).text()); // many contacts share one text
    return {contactKey + row.field(number).text(),
            row.field(name).text(),
            {oneLine(row.field(address).text()), cityName, row.field(phone).text(), row.field(mobile).text(),
             born.isEmpty() ? QString() : born.text()},
            icon};
}

std::vector<ListItem> contacts(Recordset &rows)
{
    std::vector<ListItem> items;
    const QIcon icon = BookIcons::contact();
    QSet<QString> cities;
    for (; !rows.eof(); rows.moveNext())
        items.push_back(contactOf(rows, icon, cities));
    return items;
}

QString sortColumn(const QString &table)
{
    if (table.compare(QStringLiteral("Groups"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("GroupName");
    if (table.compare(QStringLiteral("City"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("CityName");
    return QStringLiteral("StateName");
}

} // namespace

void BookList::showContacts(ListView &list, const QString &statement)
{
    Recordset rows;
    rows.open(statement, AddressConnection);
    list.ListItems().Clear();
    list.setColumnHeaders({});
    list.setCheckboxes(true);
    list.setColumnHeaders(contactColumns());
    list.ListItems().addItems(contacts(rows));
}

void BookList::showTable(ListView &list, const QString &table)
{
    Recordset rows;
    rows.open(QStringLiteral("select * from ") + table + QStringLiteral(" ORDER BY ") + sortColumn(table),
              AddressConnection);
    list.ListItems().Clear();
    list.setColumnHeaders({{QStringLiteral("Col1"), rows.fieldName(0), 800},
                           {QStringLiteral("Col2"), rows.fieldName(1), 2500}});
    std::vector<ListItem> items;
    const QIcon icon = BookIcons::ofTable(table);
    for (; !rows.eof(); rows.moveNext()) {
        const QString id = rows.field(0).text();
        items.push_back({QStringLiteral("Item") + id, id, {rows.field(1).text()}, icon});
    }
    list.ListItems().addItems(std::move(items));
}

bool BookList::hasContacts(const ListView &list)
{
    return list.ListItems().columnCount() > 0 && list.ColumnHeaders(1).Text == nameCaption;
}

qint32 BookList::contactNumber(const ListItem &item)
{
    return item.Key.mid(contactKey.size()).toInt();
}
