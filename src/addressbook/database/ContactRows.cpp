#include "ContactRows.h"

#include "AddressDatabase.h"
#include "Recordset.h"

namespace {

Recordset rowsOf(const QString &statement, qint32 number)
{
    Recordset rows;
    rows.open(statement + QString::number(number), AddressConnection);
    return rows;
}

/// A recordset without rows, in which a new one has been begun.
Recordset newRow(const QString &statement, qint32 number)
{
    Recordset rows;
    rows.open(statement, AddressConnection, Recordset::Kind::Updatable);
    rows.addNew();
    rows.setField(u"SrNo", number);
    return rows;
}

} // namespace

NameRow ContactRows::name(qint32 number)
{
    return nameIn(rowsOf(QStringLiteral("select * from names where srno="), number));
}

HomeRow ContactRows::home(qint32 number)
{
    return homeIn(rowsOf(QStringLiteral("Select * from Home where srno="), number));
}

BusinessRow ContactRows::business(qint32 number)
{
    return businessIn(rowsOf(QStringLiteral("Select * from Business where srno="), number));
}

QStringList ContactRows::eMails(qint32 number)
{
    QStringList addresses;
    for (Recordset row = rowsOf(QStringLiteral("Select * from EMails where srno="), number); !row.eof();
         row.moveNext())
        addresses.append(row.field(1).textOrEmpty());
    return addresses;
}

NameRow ContactRows::nameIn(const Recordset &row)
{
    NameRow name;
    name.salutation = row.field(u"Salutation").text();
    name.name = row.field(u"Name").text();
    name.nickName = row.field(u"NickName").textOrEmpty();
    name.comment = row.field(u"Comment").textOrEmpty();
    if (const FieldValue date = row.field(u"dtOfBirth"); !date.isEmpty())
        name.birthDate = date.date();
    name.groupId = quint8(row.field(u"GroupID").number());
    return name;
}

HomeRow ContactRows::homeIn(const Recordset &row)
{
    return {
        .address = row.field(u"hAddress").textOrEmpty(),
        .cityId = qint16(row.field(u"CityID").number()),
        .zipCode = row.field(u"hZipCode").textOrEmpty(),
        .phone1 = row.field(u"hPhone1").textOrEmpty(),
        .phone2 = row.field(u"hPhone2").textOrEmpty(),
        .mobile = row.field(u"hMobile").textOrEmpty(),
    };
}

BusinessRow ContactRows::businessIn(const Recordset &row)
{
    return {
        .address = row.field(u"bAddress").textOrEmpty(),
        .cityId = qint16(row.field(u"CityID").number()),
        .zipCode = row.field(u"bZipCode").textOrEmpty(),
        .phone1 = row.field(u"bPhone1").textOrEmpty(),
        .phone2 = row.field(u"bPhone2").textOrEmpty(),
        .fax = row.field(u"bFax").textOrEmpty(),
        .pager = row.field(u"bPager").textOrEmpty(),
        .company = row.field(u"bCompany").textOrEmpty(),
        .post = row.field(u"bPost").textOrEmpty(),
        .department = row.field(u"bDepartment").textOrEmpty(),
    };
}

void ContactRows::addName(qint32 number, const NameRow &row)
{
    Recordset names = newRow(QStringLiteral("select * from Names where srNo=0"), number);
    names.setField(u"GroupID", row.groupId);
    names.setField(u"Salutation", row.salutation);
    names.setField(u"Name", row.name);
    names.setField(u"NickName", row.nickName);
    names.setField(u"Comment", row.comment);
    names.setField(u"dtOfBirth", row.birthDate ? FieldValue(*row.birthDate) : FieldValue());
    names.update();
}

void ContactRows::addEMails(qint32 number, const QStringList &addresses)
{
    for (const QString &address : addresses) {
        Recordset eMails = newRow(QStringLiteral("select * from EMails where srNo=0"), number);
        eMails.setField(u"Email_Id", address);
        eMails.update();
    }
}

void ContactRows::addHome(qint32 number, const HomeRow &row)
{
    Recordset home = newRow(QStringLiteral("select * from Home where srNo=0"), number);
    home.setField(u"hAddress", row.address);
    home.setField(u"CityID", row.cityId);
    home.setField(u"hZipCode", row.zipCode);
    home.setField(u"hPhone1", row.phone1);
    home.setField(u"hPhone2", row.phone2);
    home.setField(u"hMobile", row.mobile);
    home.update();
}

void ContactRows::addBusiness(qint32 number, const BusinessRow &row)
{
    Recordset business = newRow(QStringLiteral("select * from Business where srNo=0"), number);
    business.setField(u"bAddress", row.address);
    business.setField(u"CityID", row.cityId);
    business.setField(u"bZipCode", row.zipCode);
    business.setField(u"bPhone1", row.phone1);
    business.setField(u"bPhone2", row.phone2);
    business.setField(u"bFax", row.fax);
    business.setField(u"bPager", row.pager);
    business.setField(u"bCompany", row.company);
    business.setField(u"bPost", row.post);
    business.setField(u"bDepartment", row.department);
    business.update();
}

void ContactRows::remove(qint32 number)
{
    AddressConnection.execute(QStringLiteral("Delete from Names where srno=") + QString::number(number));
}
