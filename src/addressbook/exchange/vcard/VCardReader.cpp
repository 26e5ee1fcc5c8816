#include "VCardReader.h"

#include "ContactBuilder.h"
#include "VCardProperty.h"
#include "VCardText.h"

#include <QUrl>

namespace {

using VCardText::split;
using VCardText::unescaped;

QString component(const QStringList &parts, int index)
{
    return unescaped(parts.value(index)).trimmed();
}

/// "tel:+1-555-0100;ext=7" as a user dials it.
QString phoneNumber(const VCardProperty &property)
{
    const QString text = unescaped(property.value).trimmed();
    if (!text.startsWith(QLatin1String("tel:"), Qt::CaseInsensitive))
        return text;
    const QString number = text.mid(4);
    const QString extension =
        number.section(QStringLiteral(";ext="), 1, 1, QString::SectionCaseInsensitiveSeps);
    QString dialled = QUrl::fromPercentEncoding(number.section(u';', 0, 0).toUtf8());
    if (!extension.isEmpty())
        dialled += QStringLiteral(" x") + extension.section(u';', 0, 0);
    return dialled;
}

void addFullName(ContactBuilder &builder, const VCardProperty &property)
{
    if (builder.contact().name.isEmpty()) // a card may have its name in several languages
        builder.contact().name = unescaped(property.value).trimmed();
}

void addName(ContactBuilder &builder, const VCardProperty &property)
{
    const QStringList parts = split(property.value, u';');
    builder.addName(component(parts, 1), component(parts, 2), component(parts, 0));
    builder.addPrefix(component(parts, 3));
    builder.addSuffix(component(parts, 4));
}

void addNickName(ContactBuilder &builder, const VCardProperty &property)
{
    builder.addText(&Contact::nickName, QStringLiteral("Nick name"), unescaped(property.value));
}

void addBirthDate(ContactBuilder &builder, const VCardProperty &property)
{
    const QString date = unescaped(property.value).trimmed();
    const QString omitted = property.parameters.value(QStringLiteral("X-APPLE-OMIT-YEAR"));
    const bool hasNoYear = !omitted.isEmpty() && date.startsWith(omitted);
    builder.setBirthDate(hasNoYear ? QStringLiteral("--") + date.mid(omitted.size()).remove(u'-') : date);
}

void addPlace(ContactBuilder &builder, const VCardProperty &property)
{
    const QStringList parts = split(property.value, u';');
    QStringList lines;
    for (const int index : {0, 1, 2, 6}) { // post box, extension, street, country
        if (const QString line = component(parts, index); !line.isEmpty())
            lines.append(line);
    }
    builder.addPlace({lines.join(u'\n'), component(parts, 3), component(parts, 4), component(parts, 5)},
                     property.types);
}

void addPhone(ContactBuilder &builder, const VCardProperty &property)
{
    builder.addPhone(phoneNumber(property), property.types);
}

void addEMail(ContactBuilder &builder, const VCardProperty &property)
{
    builder.addEMail(unescaped(property.value));
}

void addOrganisation(ContactBuilder &builder, const VCardProperty &property)
{
    QStringList units = split(property.value, u';');
    for (QString &unit : units)
        unit = unescaped(unit).trimmed();
    builder.addText(&Contact::company, QStringLiteral("Company"), units.takeFirst());
    units.removeAll(QString());
    builder.addText(&Contact::department, QStringLiteral("Department"), units.join(QLatin1String(", ")));
}

void addTitle(ContactBuilder &builder, const VCardProperty &property)
{
    builder.addText(&Contact::post, QStringLiteral("Position"), unescaped(property.value));
}

void addNote(ContactBuilder &builder, const VCardProperty &property)
{
    builder.addComment(unescaped(property.value));
}

void addCategories(ContactBuilder &builder, const VCardProperty &property)
{
    for (const QString &category : split(property.value, u','))
        builder.addText(&Contact::group, QStringLiteral("Group"), unescaped(category));
}

struct PropertyRow
{
    const char *property;
    void (*add)(ContactBuilder &, const VCardProperty &);
};

constexpr PropertyRow propertyRows[] = {
    {"FN", addFullName}, {"N", addName},     {"NICKNAME", addNickName}, {"BDAY", addBirthDate},
    {"ADR", addPlace},   {"TEL", addPhone},  {"EMAIL", addEMail},       {"ORG", addOrganisation},
    {"TITLE", addTitle}, {"ROLE", addTitle}, {"NOTE", addNote},         {"CATEGORIES", addCategories},
};

/// The cards of a file one after the other. A card within another one, an agent's, is skipped.
class Cards
{
public:
    void add(const VCardProperty &property);
    void finishCard();
    ContactList take() { return std::move(m_list); }

private:
    void begin();
    void end();

    ContactList m_list;
    std::optional<ContactBuilder> m_card; ///< nothing between two cards
    bool m_isGroup = false;               ///< a list of other cards
    bool m_isAgentNext = false;
    int m_agents = 0; ///< how many cards are open within the card
};

void Cards::add(const VCardProperty &property)
{
    const bool isCard = property.value.trimmed().compare(u"VCARD", Qt::CaseInsensitive) == 0;
    if (property.name == u"BEGIN" && isCard)
        return begin();
    if (property.name == u"END" && isCard)
        return end();
    if (!m_card || m_agents > 0)
        return;
    m_isAgentNext = property.name == u"AGENT" && property.value.trimmed().isEmpty();
    if (property.name == u"KIND" || property.name == u"X-ADDRESSBOOKSERVER-KIND")
        m_isGroup = property.value.trimmed().compare(u"group", Qt::CaseInsensitive) == 0;
    for (const PropertyRow &row : propertyRows) {
        if (property.name == QLatin1String(row.property))
            row.add(*m_card, property);
    }
}

void Cards::begin()
{
    if (m_agents > 0 || m_isAgentNext) {
        ++m_agents;
        m_isAgentNext = false;
        return;
    }
    finishCard(); // one that has no end
    m_card.emplace();
}

void Cards::end()
{
    if (m_agents > 0)
        --m_agents;
    else
        finishCard();
}

void Cards::finishCard()
{
    if (m_card && !m_isGroup)
        m_card->finish(m_list);
    m_card.reset();
    m_isGroup = false;
    m_isAgentNext = false;
    m_agents = 0;
}

} // namespace

ContactList VCardReader::read(const QByteArray &bytes)
{
    Cards cards;
    for (const QByteArray &line : VCardText::unfolded(bytes))
        cards.add(VCardProperty::parse(line));
    cards.finishCard();
    return cards.take();
}
