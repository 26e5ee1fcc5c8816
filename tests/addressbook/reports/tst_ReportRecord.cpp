#include "AddressDatabase.h"
#include "ContactRows.h"
#include "DataError.h"
#include "ErrorNumberOf.h"
#include "PrintQt.h"
#include "ReportBook.h"
#include "ReportRecord.h"

#include <gtest/gtest.h>

namespace {

using Phones = ReportRecord::Phones;

struct ReportRecordTest : testing::Test
{
    ReportRecordTest()
    {
        for (const char *statement :
             {"insert into State values(2, 'Kent')", "insert into City values(2, 'Dover', 2)",
              "insert into State values(3, 'Surrey')", "insert into City values(3, 'Woking', 3)",
              "insert into Groups values(2, 'Family')"})
            AddressConnection.execute(QString::fromLatin1(statement));
    }
    int errorOf(qint32 number)
    {
        return errorNumberOf([&] { record.read(number, Phones::Both); });
    }

    ReportBook reports;
    ReportRecord record;
};

} // namespace

TEST_F(ReportRecordTest, EachValueIsThatOfItsColumn)
{
    const auto text = [](const char *words) { return QString::fromLatin1(words); };
    const qint32 number = reports.add({.groupId = 2,
                                       .salutation = text("Mr."),
                                       .name = text("name"),
                                       .nickName = text("nick"),
                                       .comment = text("comment"),
                                       .birthDate = QDate(1996, 2, 29)},
                                      {.address = text("home"),
                                       .cityId = 2,
                                       .zipCode = text("hzip"),
                                       .phone1 = text("h1"),
                                       .phone2 = text("h2"),
                                       .mobile = text("hm")},
                                      {.address = text("work"),
                                       .cityId = 3,
                                       .zipCode = text("bzip"),
                                       .phone1 = text("b1"),
                                       .phone2 = text("b2"),
                                       .fax = text("fax"),
                                       .pager = text("pager"),
                                       .company = text("company"),
                                       .post = text("post"),
                                       .department = text("dept")});
    record.read(number, Phones::Both);
    const QStringList values = {record.name,        record.nickName,  record.comment,     record.birthDate,
                                record.groupName,   record.eMailText, record.homeAddress, record.homeCity,
                                record.homeState,   record.homeZip,   record.homePhones,  record.homeMobile,
                                record.workAddress, record.workCity,  record.workState,   record.workZip,
                                record.workPhones,  record.workFax,   record.workMobile,  record.company,
                                record.post,        record.department};
    EXPECT_EQ(values.join(u'|'),
              text("name|nick|comment|29-Feb-1996|Family||home|Dover|Kent|hzip|h1:h2|hm|work|Woking|Surrey|"
                   "bzip|b1:b2|fax|pager|company|post|dept"));
}

TEST_F(ReportRecordTest, AnEmptySecondTelephoneLeavesTheColon)
{
    const qint32 number = reports.add({.groupId = 1, .name = QStringLiteral("Ann")},
                                      {.cityId = 1, .phone1 = QStringLiteral("1")},
                                      {.cityId = 1, .phone2 = QStringLiteral("2")});
    record.read(number, Phones::Both);
    EXPECT_EQ(record.homePhones, QStringLiteral("1:"));
    EXPECT_EQ(record.workPhones, QStringLiteral(":2"));
    record.read(number, Phones::First);
    EXPECT_EQ(record.homePhones, QStringLiteral("1"));
    EXPECT_EQ(record.workPhones, QString());
}

TEST_F(ReportRecordTest, ABirthDateIsNotKeptFromTheContactBefore)
{
    const qint32 born =
        reports.add({.groupId = 1, .name = QStringLiteral("a"), .birthDate = QDate(2000, 1, 1)},
                    {.cityId = 1}, {.cityId = 1});
    const qint32 unknown = reports.add(QStringLiteral("b"));
    record.read(born, Phones::Both);
    record.read(unknown, Phones::Both);
    EXPECT_EQ(record.birthDate, QString());
}

TEST_F(ReportRecordTest, EachAddressAddsABlankForAllContactsBehind)
{
    const auto withMails = [this](int count) {
        return reports.add({.groupId = 1, .name = QStringLiteral("x")}, {.cityId = 1}, {.cityId = 1},
                           QStringList(count, QStringLiteral("a@example.org")));
    };
    const qint32 two = withMails(2);
    const qint32 none = withMails(0);
    record.read(two, Phones::Both);
    EXPECT_EQ(record.eMailText, QStringLiteral("  "));
    record.read(none, Phones::First);
    EXPECT_EQ(record.eMailText, QStringLiteral("  "));
    record.read(two, Phones::First);
    EXPECT_EQ(record.eMailText, QStringLiteral("    "));
}

TEST_F(ReportRecordTest, AContactThatIsNotWholeIsAnError)
{
    EXPECT_EQ(errorOf(1), DataError::NoCurrentRow);
    ContactRows::addName(1, {.groupId = 1, .name = QStringLiteral("Ann")});
    ContactRows::addEMails(1, {QStringLiteral("a@example.org")});
    EXPECT_EQ(errorOf(1), DataError::NoCurrentRow);
    EXPECT_EQ(record.eMailText, QStringLiteral(" ")); // was read before the failure
    ContactRows::addHome(1, {.cityId = 1});
    EXPECT_EQ(errorOf(1), DataError::NoCurrentRow);
    ContactRows::addBusiness(1, {.cityId = 1});
    EXPECT_EQ(errorOf(1), 0);
}

TEST_F(ReportRecordTest, ACityWithoutAStateIsAnError)
{
    const qint32 home =
        reports.add({.groupId = 1, .name = QStringLiteral("a")}, {.cityId = 2}, {.cityId = 1});
    const qint32 work =
        reports.add({.groupId = 1, .name = QStringLiteral("b")}, {.cityId = 1}, {.cityId = 2});
    EXPECT_EQ(errorOf(home), 0);
    EXPECT_EQ(errorOf(work), 0);
    AddressConnection.execute(QStringLiteral("pragma foreign_keys=off"));
    AddressConnection.execute(QStringLiteral("delete from State where StateID=2"));
    EXPECT_EQ(errorOf(home), DataError::NoCurrentRow);
    EXPECT_EQ(errorOf(work), DataError::NoCurrentRow);
}

TEST_F(ReportRecordTest, AGroupOrACityThatIsGoneIsAnError)
{
    const qint32 inGroup =
        reports.add({.groupId = 2, .name = QStringLiteral("a")}, {.cityId = 1}, {.cityId = 1});
    const qint32 inCity =
        reports.add({.groupId = 1, .name = QStringLiteral("b")}, {.cityId = 2}, {.cityId = 1});
    AddressConnection.execute(QStringLiteral("pragma foreign_keys=off"));
    AddressConnection.execute(QStringLiteral("delete from Groups where GroupID=2"));
    AddressConnection.execute(QStringLiteral("delete from City where CityID=2"));
    EXPECT_EQ(errorOf(inGroup), DataError::NoCurrentRow);
    EXPECT_EQ(errorOf(inCity), DataError::NoCurrentRow);
}
