#include "ContactPrinter.h"
#include "SampleFile.h"
#include "VCardReader.h"

#include <gtest/gtest.h>

namespace {

QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

/// The one contact of a card with \a lines.
Contact cardOf(const QByteArray &lines)
{
    const ContactList list = VCardReader::read("BEGIN:VCARD\nFN:x\n" + lines + "\nEND:VCARD\n");
    EXPECT_EQ(list.contacts.size(), 1);
    EXPECT_EQ(list.remarks, QStringList());
    return list.contacts.value(0);
}

QString remarkOf(const QByteArray &lines)
{
    return VCardReader::read("BEGIN:VCARD\nFN:x\n" + lines + "\nEND:VCARD\n").remarks.join(u'|');
}

std::optional<QDate> bornOf(const QByteArray &line)
{
    return cardOf(line).birthDate;
}

} // namespace

TEST(VCardReader, ReadsACardOfAPhone)
{
    const ContactList list = VCardReader::read(sampleFile("phone-3.0.vcf"));
    ASSERT_EQ(list.contacts.size(), 2);
    EXPECT_EQ(list.remarks, QStringList());
    EXPECT_EQ(list.contacts[0],
              (Contact{
                  .name = utf8("Jörg Brück"),
                  .nickName = utf8("Jojo"),
                  .group = utf8("Freunde"),
                  .comment = utf8(
                      "Erste Zeile\nzweite Zeile, mit Komma; und mehr: eine Zeile, die so lang ist, dass "
                      "sie umgebrochen wird.\nPrefix: Dr.\nSuffix: jr.\nGroup: Verein"),
                  .birthDate = QDate(Contact::unknownYear, 2, 29),
                  .eMails = {utf8("joerg@example.org"), utf8("jb@example.net")},
                  .home = {utf8("Hauptstraße 1\nHinterhaus\nDeutschland"), utf8("Köln"), utf8("NRW"),
                           utf8("50667")},
                  .homePhone1 = utf8("030 111"),
                  .homeMobile = utf8("+49 170 1234567"),
                  .work = {utf8("Postfach 7\nRing 2"), utf8("Bonn"), utf8("NRW"), utf8("53111")},
                  .workPhone1 = utf8("030 222"),
                  .workFax = utf8("030 333"),
                  .company = utf8("Brück & Söhne"),
                  .post = utf8("Leiter, Einkauf"),
                  .department = utf8("Einkauf"),
              }));
    EXPECT_EQ(list.contacts[1], (Contact{.name = utf8("Nur Name")}));
}

TEST(VCardReader, ReadsVersion4)
{
    const ContactList list = VCardReader::read(sampleFile("rfc6350-4.0.vcf"));
    ASSERT_EQ(list.contacts.size(), 3);
    EXPECT_EQ(list.contacts[0], (Contact{
                                    .name = utf8("Simon Perreault"),
                                    .comment = utf8("Suffix: ing. jr,M.Sc."),
                                    .birthDate = QDate(Contact::unknownYear, 2, 3),
                                    .eMails = {utf8("simon.perreault@viagenie.example")},
                                    .work = {utf8("Suite D2-630\n2875 Laurier\nCanada"), utf8("Quebec"),
                                             utf8("QC"), utf8("G1V 2M2")},
                                    .workPhone1 = utf8("+1-418-656-9254 x102"),
                                    .workMobile = utf8("+1-418-262-6501"),
                                    .company = utf8("Viagenie"),
                                }));
    EXPECT_EQ(list.contacts[1].birthDate, QDate(1953, 4, 15));
    EXPECT_EQ(list.contacts[2].birthDate, std::nullopt);
    EXPECT_EQ(list.remarks, QStringList(utf8("Dates in Words: \"circa 1800\" is no clear birth date.")));
}

TEST(VCardReader, ReadsVersion21)
{
    const ContactList list = VCardReader::read(sampleFile("old-phone-2.1.vcf"));
    ASSERT_EQ(list.contacts.size(), 2);
    EXPECT_EQ(list.contacts[0], (Contact{
                                    .name = utf8("René Müller"),
                                    .comment = utf8("a=b c"),
                                    .birthDate = QDate(1999, 12, 31),
                                    .eMails = {utf8("r@example.org")},
                                    .home = {utf8("Lange Straße 1\nHof"), utf8("München"), {}, utf8("80331")},
                                    .homePhone1 = utf8("1"),
                                    .homeMobile = utf8("2"),
                                    .workFax = utf8("3"),
                                }));
    EXPECT_EQ(list.contacts[1].name, utf8("Café Old"));
}

TEST(VCardReader, ReadsTheFormsOfBirthDates)
{
    const QDate date(1999, 9, 5);
    for (const char *form :
         {"BDAY:1999-09-05", "BDAY:19990905", "BDAY;VALUE=date:1999-09-05", "BDAY:1999-09-05T23:30:00Z",
          "BDAY:19990905T000000-1200", "BDAY:1999-09-05 10:00"})
        EXPECT_EQ(bornOf(form), date) << form;
    EXPECT_EQ(bornOf("BDAY:--0229"), QDate(1604, 2, 29));
    EXPECT_EQ(bornOf("BDAY:--02-29"), QDate(1604, 2, 29));
    EXPECT_EQ(bornOf("BDAY;X-APPLE-OMIT-YEAR=1900:1900-03-01"), QDate(1604, 3, 1));
    EXPECT_EQ(bornOf("BDAY:"), std::nullopt);
    for (const char *form :
         {"BDAY:1999-02-29", "BDAY:---05", "BDAY:1999", "BDAY:1999-09", "BDAY:--1332", "BDAY:x"})
        EXPECT_TRUE(remarkOf(form).contains(utf8("no clear birth date"))) << form;
}

TEST(VCardReader, EachNumberFindsItsPlace)
{
    const Contact contact =
        cardOf("TEL:0\nTEL;TYPE=home:1\nTEL;TYPE=work:2\nTEL;TYPE=WORK,VOICE:3\nTEL;TYPE=cell:4\n"
               "TEL;TYPE=\"work,cell\":5\nTEL;TYPE=fax:6");
    const QStringList places = {contact.homePhone1, contact.homePhone2, contact.workPhone1,
                                contact.workPhone2, contact.homeMobile, contact.workMobile,
                                contact.workFax};
    EXPECT_EQ(places.join(u' '), utf8("0 1 2 3 4 5 6"));
}

TEST(VCardReader, MoreNumbersThanPlacesTakeWhatIsFree)
{
    const Contact contact = cardOf("TEL;TYPE=home:1\nTEL;TYPE=home:2\nTEL;TYPE=home:3\nTEL;TYPE=cell:4");
    EXPECT_EQ(contact.homeMobile, utf8("4"));
    EXPECT_EQ(contact.workPhone1, utf8("3"));
    EXPECT_EQ(remarkOf("TEL:1\nTEL:2\nTEL:3\nTEL:4\nTEL:5\nTEL:6\nTEL:7"),
              utf8("x: there is no room for the number 7."));
    EXPECT_EQ(remarkOf("ADR:;;a;b\nADR:;;c;d\nADR:;;e;f"),
              utf8("x: there is no room for a third address, in \"f\"."));
}

TEST(VCardReader, TakesAnyTextForAName)
{
    const auto nameOf = [](const QByteArray &lines) {
        return VCardReader::read("BEGIN:VCARD\n" + lines + "\nEND:VCARD").contacts.value(0).name;
    };
    EXPECT_EQ(nameOf("N:Lee;Ann;B.;;"), utf8("Ann B. Lee"));
    EXPECT_EQ(nameOf("FN: \nNICKNAME:Annie"), utf8("Annie"));
    EXPECT_EQ(nameOf("ORG:Works"), utf8("Works"));
    EXPECT_EQ(nameOf("EMAIL:a@x"), utf8("a@x"));
    EXPECT_EQ(nameOf("TEL:12"), utf8("12"));
    EXPECT_EQ(VCardReader::read("BEGIN:VCARD\nNOTE:x\nEND:VCARD").remarks,
              QStringList(utf8("An entry without a name was left out.")));
}

TEST(VCardReader, KnowsTheSalutationsOfTheAddressBook)
{
    EXPECT_EQ(cardOf("N:a;b;;Mr;").salutation, utf8("Mr."));
    EXPECT_EQ(cardOf("N:a;b;;mrs.;").salutation, utf8("Mrs."));
    EXPECT_EQ(cardOf("N:a;b;;M/S.;").salutation, utf8("M/S."));
    EXPECT_EQ(cardOf("N:a;b;;Dr.;").salutation, QString());
}

TEST(VCardReader, WordsWithoutAFieldAreInTheComment)
{
    EXPECT_EQ(cardOf("N:a;b;;Dr.;jr.\nNOTE:n").comment, utf8("n\nPrefix: Dr.\nSuffix: jr."));
    EXPECT_EQ(cardOf("NICKNAME:Al\nNICKNAME:Bo\nNICKNAME:Al").nickName, utf8("Al"));
    EXPECT_EQ(cardOf("NICKNAME:Al\nNICKNAME:Bo\nNICKNAME:Al").comment, utf8("Nick name: Bo"));
    EXPECT_EQ(cardOf("ORG:a;b\nORG:c;b\nTITLE:d\nTITLE:e").comment, utf8("Company: c\nPosition: e"));
    EXPECT_EQ(cardOf("CATEGORIES:a,b").group, utf8("a"));
    EXPECT_EQ(cardOf("CATEGORIES:a,b").comment, utf8("Group: b"));
    const ContactList list =
        VCardReader::read("BEGIN:VCARD\nN:Lee;Ann;;Dr.;PhD\nFN:Dr. Ann Lee\nEND:VCARD\n");
    EXPECT_EQ(list.contacts.value(0).comment, utf8("Suffix: PhD")); // the name has the prefix
}

TEST(VCardReader, APrefixOrSuffixIsLeftOutWhereTheNameHasItsWordsAlone)
{
    const auto comment = [](const char *name, const char *parts) {
        const QByteArray card = QByteArray("BEGIN:VCARD\nN:;;;") + parts + "\nFN:" + name + "\nEND:VCARD\n";
        return VCardReader::read(card).contacts.value(0).comment;
    };
    EXPECT_EQ(comment("Andrew Lee", "Dr;"), utf8("Prefix: Dr"));
    EXPECT_EQ(comment("Thomas Lee", ";MA"), utf8("Suffix: MA"));
    EXPECT_EQ(comment("David Lee", ";V"), utf8("Suffix: V"));
    EXPECT_EQ(comment("Ann Lee M.A.", ";a.b."), utf8("Suffix: a.b."));
    EXPECT_EQ(comment("dr Andrew Lee, M.A.", "Dr.;MA"), utf8("Suffix: MA"));
    EXPECT_EQ(comment("Prof. Dr. Andrew Lee\\, M.A.", "Prof. Dr.;M.A."), QString());
}

TEST(VCardReader, ReadsWhatIsWholeOfADamagedFile)
{
    const auto namesOf = [](const QByteArray &bytes) {
        QStringList names;
        for (const Contact &contact : VCardReader::read(bytes).contacts)
            names.append(contact.name);
        return names.join(u',');
    };
    EXPECT_EQ(namesOf("BEGIN:VCARD\nFN:a"), utf8("a"));
    EXPECT_EQ(namesOf("BEGIN:VCARD\nFN:a\nBEGIN:VCARD\nFN:b\nEND:VCARD"), utf8("a,b"));
    EXPECT_EQ(namesOf("FN:outside\nEND:VCARD\nBEGIN:VCARD\nFN:a\nno colon here\n:\n;:x\n\"\nEND:VCARD"),
              utf8("a"));
    EXPECT_EQ(
        namesOf("BEGIN:VCARD\nFN:a\nAGENT:\nBEGIN:VCARD\nFN:b\nBEGIN:VCARD\nEND:VCARD\nEND:VCARD\nEND:VCARD\n"
                "BEGIN:VCARD\nFN:c\nEND:VCARD"),
        utf8("a,c"));
    EXPECT_EQ(namesOf({}), QString());
    EXPECT_EQ(namesOf(QByteArray(1000, '\0')), QString());
}

TEST(VCardReader, EveryBeginningOfAFileCanBeRead)
{
    for (const char *name : {"phone-3.0.vcf", "rfc6350-4.0.vcf", "old-phone-2.1.vcf"}) {
        const QByteArray bytes = sampleFile(name);
        for (qsizetype size = 0; size < bytes.size(); ++size)
            EXPECT_LE(VCardReader::read(bytes.left(size)).contacts.size(), 3);
    }
}

TEST(VCardReader, LongFilesTakeTimeInProportion)
{
    // Each would take minutes if a line were read anew for each of its parts.
    EXPECT_EQ(cardOf("NOTE:" + QByteArray("x\n ").repeated(300'000)).comment.size(), 300'000);
    cardOf("X;ENCODING=QUOTED-PRINTABLE:" + QByteArray("x=\n").repeated(100'000));
    cardOf("QUOTED-PRINTABLE=\n" + QByteArray("=\n").repeated(100'000));
    cardOf("X" + QByteArray(";a=b").repeated(100'000) + ":c");
    cardOf("ADR:" + QByteArray(";").repeated(100'000));
    EXPECT_EQ(VCardReader::read(QByteArray("BEGIN:VCARD\n").repeated(100'000)).contacts.size(), 0);
}
