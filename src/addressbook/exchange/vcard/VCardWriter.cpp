#include "VCardWriter.h"

#include "VCardText.h"

namespace {

using Version = VCardWriter::Version;
using VCardText::escaped;

class Card
{
public:
    explicit Card(Version version)
        : m_version(version)
    {}

    QByteArray write(const Contact &contact);

private:
    void add(const char *head, const QString &value)
    {
        m_lines += VCardText::folded(QLatin1String(head) + value);
    }
    /// Nothing for an empty text.
    void addText(const char *head, const QString &text);
    void addPlace(const char *head, const Place &place);
    void addBirthDate(QDate date);
    void addPhones(const Contact &contact);

    Version m_version;
    QByteArray m_lines;
};

QByteArray Card::write(const Contact &contact)
{
    add("BEGIN:", QStringLiteral("VCARD"));
    add("VERSION:", m_version == Version::V3 ? QStringLiteral("3.0") : QStringLiteral("4.0"));
    add("FN:", escaped(contact.name));
    // The parts of the name are not known. 3.0 asks for them all the same.
    add("N:", escaped(contact.name) + QStringLiteral(";;;") + escaped(contact.salutation) + u';');
    addText("NICKNAME:", contact.nickName);
    if (contact.birthDate)
        addBirthDate(*contact.birthDate);
    for (const QString &address : contact.eMails)
        addText("EMAIL:", address);
    addPhones(contact);
    addPlace("ADR;TYPE=home:", contact.home);
    addPlace("ADR;TYPE=work:", contact.work);
    if (!contact.company.isEmpty() || !contact.department.isEmpty())
        add("ORG:", escaped(contact.company) + u';' + escaped(contact.department));
    addText("TITLE:", contact.post);
    addText("CATEGORIES:", contact.group);
    addText("NOTE:", contact.comment);
    add("END:", QStringLiteral("VCARD"));
    return m_lines;
}

void Card::addText(const char *head, const QString &text)
{
    if (!text.isEmpty())
        add(head, escaped(text));
}

void Card::addPlace(const char *head, const Place &place)
{
    if (place.isEmpty())
        return;
    const QStringList parts = {{}, {}, place.address, place.city, place.state, place.zipCode, {}};
    QStringList values;
    for (const QString &part : parts)
        values.append(escaped(part));
    add(head, values.join(u';'));
}

void Card::addBirthDate(QDate date)
{
    const bool hasYear = date.year() != Contact::unknownYear;
    if (m_version == Version::V3)
        add(hasYear ? "BDAY:" : "BDAY;X-APPLE-OMIT-YEAR=1604:", date.toString(Qt::ISODate));
    else
        add("BDAY:", date.toString(hasYear ? QStringLiteral("yyyyMMdd") : QStringLiteral("'--'MMdd")));
}

void Card::addPhones(const Contact &contact)
{
    addText("TEL;TYPE=home;TYPE=voice:", contact.homePhone1);
    addText("TEL;TYPE=home;TYPE=voice:", contact.homePhone2);
    addText("TEL;TYPE=home;TYPE=cell:", contact.homeMobile);
    addText("TEL;TYPE=work;TYPE=voice:", contact.workPhone1);
    addText("TEL;TYPE=work;TYPE=voice:", contact.workPhone2);
    addText("TEL;TYPE=work;TYPE=cell:", contact.workMobile);
    addText("TEL;TYPE=work;TYPE=fax:", contact.workFax);
}

} // namespace

QByteArray VCardWriter::write(const QList<Contact> &contacts, Version version)
{
    QByteArray bytes;
    for (const Contact &contact : contacts)
        bytes += Card(version).write(contact);
    return bytes;
}
