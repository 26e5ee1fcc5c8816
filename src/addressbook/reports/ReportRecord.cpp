#include "ReportRecord.h"

#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DateText.h"
#include "Recordset.h"
#include "modGetFunctions.h"

namespace {

QString joined(const QString &first, const QString &second, ReportRecord::Phones phones)
{
    return phones == ReportRecord::Phones::Both ? first + u':' + second : first;
}

QString stateFrom(const QString &statement)
{
    Recordset rows;
    rows.open(statement, AddressConnection);
    return rows.field(u"StateName").textOrEmpty();
}

QString homeStateOf(qint32 number)
{
    return stateFrom(QStringLiteral("Select State.StateName from State inner join (City inner join Home on "
                                    "City.CityID = Home.CityID) on State.StateID = City.StateID where "
                                    "(((Home.SrNo)=") +
                     QString::number(number) + QStringLiteral("))"));
}

QString workStateOf(qint32 number)
{
    return stateFrom(QStringLiteral("Select State.StateName from (State inner join City ON State.StateID = "
                                    "City.StateID) inner join Business on City.CityID = Business.CityID "
                                    "where (((Business.SrNo)=") +
                     QString::number(number) + QStringLiteral("))"));
}

} // namespace

void ReportRecord::read(qint32 number, Phones phones)
{
    readName(number);
    eMailText.prepend(QString(ContactRows::eMails(number).size(), u' '));
    readHome(number, phones);
    readBusiness(number, phones);
    homeState = homeStateOf(number);
    workState = workStateOf(number);
}

void ReportRecord::readName(qint32 number)
{
    const NameRow row = ContactRows::name(number);
    name = row.name;
    nickName = row.nickName;
    comment = row.comment;
    birthDate = row.birthDate ? DateText::show(*row.birthDate) : QString();
    groupName = GetGroupName(row.groupId);
}

void ReportRecord::readHome(qint32 number, Phones phones)
{
    const HomeRow row = ContactRows::home(number);
    homeAddress = row.address;
    homeCity = GetCityName(QString::number(row.cityId));
    homeZip = row.zipCode;
    homePhones = joined(row.phone1, row.phone2, phones);
    homeMobile = row.mobile;
}

void ReportRecord::readBusiness(qint32 number, Phones phones)
{
    const BusinessRow row = ContactRows::business(number);
    workAddress = row.address;
    workCity = GetCityName(QString::number(row.cityId));
    workZip = row.zipCode;
    workPhones = joined(row.phone1, row.phone2, phones);
    workFax = row.fax;
    workMobile = row.pager;
    company = row.company;
    post = row.post;
    department = row.department;
}
