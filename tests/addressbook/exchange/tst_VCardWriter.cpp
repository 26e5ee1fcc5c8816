#include "ContactPrinter.h"
#include "FullContact.h"
#include "VCardReader.h"
#include "VCardWriter.h"

#include <gtest/gtest.h>

using Version = VCardWriter::Version;

TEST(VCardWriter, WritesVersion4)
{
    const Contact contact = {.salutation = QStringLiteral("Mrs."),
                             .name = QStringLiteral("Ann Lee"),
                             .birthDate = QDate(1999, 9, 5),
                             .eMails = {QStringLiteral("a@x")},
                             .home = {QStringLiteral("1 Road\nFlat"), QStringLiteral("Dover"), {}, {}},
                             .homeMobile = QStringLiteral("1"),
                             .company = QStringLiteral("Works")};
    EXPECT_EQ(VCardWriter::write({contact}, Version::V4),
              QByteArray("BEGIN:VCARD\r\n"
                         "VERSION:4.0\r\n"
                         "FN:Ann Lee\r\n"
                         "N:Ann Lee;;;Mrs.;\r\n"
                         "BDAY:19990905\r\n"
                         "EMAIL:a@x\r\n"
                         "TEL;TYPE=home;TYPE=cell:1\r\n"
                         "ADR;TYPE=home:;;1 Road\\nFlat;Dover;;;\r\n"
                         "ORG:Works;\r\n"
                         "END:VCARD\r\n"));
}

TEST(VCardWriter, WritesVersion3)
{
    const Contact contact = {.name = QStringLiteral("Ann Lee"), .birthDate = QDate(1999, 9, 5)};
    EXPECT_EQ(
        VCardWriter::write({contact}, Version::V3),
        QByteArray(
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann Lee\r\nN:Ann Lee;;;;\r\nBDAY:1999-09-05\r\nEND:VCARD\r\n"));
}

TEST(VCardWriter, WritesABirthDateWithoutItsYear)
{
    const Contact contact = {.name = QStringLiteral("x"), .birthDate = QDate(Contact::unknownYear, 2, 29)};
    EXPECT_TRUE(VCardWriter::write({contact}, Version::V4).contains("\r\nBDAY:--0229\r\n"));
    EXPECT_TRUE(VCardWriter::write({contact}, Version::V3)
                    .contains("\r\nBDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29\r\n"));
}

TEST(VCardWriter, IsReadBackAsItWas)
{
    Contact yearless = {.name = QStringLiteral("y"), .birthDate = QDate(Contact::unknownYear, 2, 29)};
    const QList<Contact> contacts = {fullContact(), {.name = QStringLiteral("x")}, yearless};
    for (const Version version : {Version::V3, Version::V4}) {
        const ContactList read = VCardReader::read(VCardWriter::write(contacts, version));
        EXPECT_EQ(read.remarks, QStringList());
        ASSERT_EQ(read.contacts.size(), contacts.size());
        for (qsizetype i = 0; i < contacts.size(); ++i)
            EXPECT_EQ(read.contacts[i], contacts[i]);
    }
}

TEST(VCardWriter, NoLineIsLongerThanSeventyFiveBytes)
{
    const QByteArray bytes = VCardWriter::write({fullContact()}, Version::V4);
    for (const QByteArray &line : bytes.split('\n')) {
        EXPECT_LE(line.size(), 76); // with the CR
        EXPECT_TRUE(line.isValidUtf8());
    }
}
