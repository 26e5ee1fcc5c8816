#include "ContactPrinter.h"
#include "CsvReader.h"
#include "CsvText.h"
#include "CsvWriter.h"
#include "FullContact.h"

#include <gtest/gtest.h>

using Formulas = CsvWriter::Formulas;

namespace {

/// The first two lines as fields.
QList<QStringList> rowsOf(const Contact &contact, Formulas formulas)
{
    return CsvText::read(QString::fromUtf8(CsvWriter::write({contact}, formulas)).remove(u'\r'));
}

} // namespace

TEST(CsvWriter, IsReadBackAsItWas)
{
    Contact second = {.name = QStringLiteral("y"),
                      .birthDate = QDate(Contact::unknownYear, 2, 29),
                      .homePhone2 = QStringLiteral("2")};
    for (int i = 0; i < 30; ++i)
        second.eMails.append(QStringLiteral("%1@x").arg(i));
    const QList<Contact> contacts = {fullContact(), second};
    const ContactList read = CsvReader::read(CsvWriter::write(contacts, Formulas::AsTheyAre));
    EXPECT_EQ(read.remarks, QStringList());
    ASSERT_EQ(read.contacts.size(), 2);
    EXPECT_EQ(read.contacts[0], contacts[0]);
    EXPECT_EQ(read.contacts[1], contacts[1]);
}

TEST(CsvWriter, QuotesEveryField)
{
    const QByteArray bytes = CsvWriter::write({{.name = QStringLiteral("A \"B\", C")}}, Formulas::AsTheyAre);
    EXPECT_TRUE(bytes.startsWith("\"Salutation\",\"Name\",\"Nick Name\","));
    EXPECT_TRUE(bytes.contains("\r\n\"\",\"A \"\"B\"\", C\",\"\","));
    EXPECT_TRUE(bytes.endsWith("\"\"\r\n"));
}

TEST(CsvWriter, GuardsFormulasOnlyWhereAsked)
{
    for (const char *text : {"=1+1", "+1", "-1", "@SUM(A1)", "\tx", "\rx"}) {
        const QString name = QString::fromUtf8(text);
        const Contact contact = {.name = name, .homePhone1 = QStringLiteral("+44 1")};
        const QByteArray asTheyAre = CsvWriter::write({contact}, Formulas::AsTheyAre);
        EXPECT_TRUE(asTheyAre.contains("\"" + name.toUtf8() + "\""));
        const QByteArray guarded = CsvWriter::write({contact}, Formulas::Guarded);
        EXPECT_TRUE(guarded.contains("\"'" + name.toUtf8() + "\""));
        EXPECT_TRUE(guarded.contains("\"+44 1\""));
    }
    EXPECT_EQ(rowsOf({.name = QStringLiteral("Ann")}, Formulas::Guarded).value(1).value(1),
              QStringLiteral("Ann"));
}

TEST(CsvWriter, HasAColumnForEachEMailOfTheContactWithTheMost)
{
    const Contact contact = {.name = QStringLiteral("x"),
                             .eMails = {QStringLiteral("a"), QStringLiteral("b")}};
    EXPECT_EQ(rowsOf(contact, Formulas::AsTheyAre).value(0).mid(24),
              QStringList({QStringLiteral("E-Mail 1"), QStringLiteral("E-Mail 2")}));
}
