#include "CsvColumns.h"

#include <QRegularExpression>
#include <QSet>

namespace {

const QString several = QStringLiteral(" ::: "); // between the values of one field

struct CaptionRow
{
    const char *caption;
    void (*set)(ContactBuilder &, const QString &);
};

template<QString Contact::*place>
void setText(ContactBuilder &builder, const QString &text)
{
    if ((builder.contact().*place).isEmpty())
        builder.contact().*place = text;
}

/// For telephones, of which a file may have more than one of a kind.
template<QString Contact::*place>
void setPhone(ContactBuilder &builder, const QString &text)
{
    if ((builder.contact().*place).isEmpty())
        builder.contact().*place = text;
    else
        builder.addPhone(text, {});
}

void addEMail(ContactBuilder &builder, const QString &text)
{
    builder.addEMail(text);
}

void addComment(ContactBuilder &builder, const QString &text)
{
    builder.addComment(text);
}

void setBirthDate(ContactBuilder &builder, const QString &text)
{
    builder.setBirthDate(text);
}

void addOtherPhone(ContactBuilder &builder, const QString &text)
{
    builder.addPhone(text, {});
}

void addPrefix(ContactBuilder &builder, const QString &text)
{
    builder.addPrefix(text);
}

void addSuffix(ContactBuilder &builder, const QString &text)
{
    builder.addSuffix(text);
}

void addNickName(ContactBuilder &builder, const QString &text)
{
    builder.addText(&Contact::nickName, QStringLiteral("Nick name"), text);
}

void addGroup(ContactBuilder &builder, const QString &text)
{
    builder.addText(&Contact::group, QStringLiteral("Group"), text);
}

/// "Friends ::: * myContacts"
void setLabels(ContactBuilder &builder, const QString &text)
{
    for (const QString &label : text.split(several)) {
        if (!label.startsWith(u'*'))
            addGroup(builder, label);
    }
}

constexpr CaptionRow captionRows[] = {
    {"salutation", setText<&Contact::salutation>},
    {"title", addPrefix},
    {"name prefix", addPrefix},
    {"suffix", addSuffix},
    {"name suffix", addSuffix},
    {"name", setText<&Contact::name>},
    {"full name", setText<&Contact::name>},
    {"display name", setText<&Contact::name>},
    {"file as", setText<&Contact::name>},
    {"nick name", addNickName},
    {"nickname", addNickName},
    {"group", addGroup},
    {"labels", setLabels},
    {"group membership", setLabels},
    {"categories", addGroup},
    {"birth date", setBirthDate},
    {"birthday", setBirthDate},
    {"comments", addComment},
    {"comment", addComment},
    {"notes", addComment},
    {"e-mail", addEMail},
    {"email", addEMail},
    {"e-mail address", addEMail},
    {"e-mail 2 address", addEMail},
    {"e-mail 3 address", addEMail},
    {"primary email", addEMail},
    {"secondary email", addEMail},
    {"home phone 1", setPhone<&Contact::homePhone1>},
    {"home phone", setPhone<&Contact::homePhone1>},
    {"home phone 2", setPhone<&Contact::homePhone2>},
    {"home mobile", setPhone<&Contact::homeMobile>},
    {"mobile phone", setPhone<&Contact::homeMobile>},
    {"mobile number", setPhone<&Contact::homeMobile>},
    {"mobile", setPhone<&Contact::homeMobile>},
    {"work phone 1", setPhone<&Contact::workPhone1>},
    {"work phone", setPhone<&Contact::workPhone1>},
    {"business phone", setPhone<&Contact::workPhone1>},
    {"work phone 2", setPhone<&Contact::workPhone2>},
    {"business phone 2", setPhone<&Contact::workPhone2>},
    {"work fax", setPhone<&Contact::workFax>},
    {"business fax", setPhone<&Contact::workFax>},
    {"fax number", setPhone<&Contact::workFax>},
    {"work mobile", setPhone<&Contact::workMobile>},
    {"pager", setPhone<&Contact::workMobile>},
    {"pager number", setPhone<&Contact::workMobile>},
    {"phone", addOtherPhone},
    {"primary phone", addOtherPhone},
    {"other phone", addOtherPhone},
    {"company", setText<&Contact::company>},
    {"organization", setText<&Contact::company>},
    {"organization name", setText<&Contact::company>},
    {"organization 1 - name", setText<&Contact::company>},
    {"department", setText<&Contact::department>},
    {"organization department", setText<&Contact::department>},
    {"organization 1 - department", setText<&Contact::department>},
    {"position", setText<&Contact::post>},
    {"job title", setText<&Contact::post>},
    {"organization title", setText<&Contact::post>},
    {"organization 1 - title", setText<&Contact::post>},
};

/// What follows "home", "work" or "business" in the captions of an address, in the order of its lines.
constexpr const char *streetParts[] = {"address",   "street",  "street 2",      "street 3",
                                       "address 2", "country", "country/region"};
constexpr const char *cityParts[] = {"city"};
constexpr const char *stateParts[] = {"state"};
constexpr const char *zipParts[] = {"postal code", "zip code", "zipcode", "zip"};
constexpr const char *placeKinds[] = {"home", "work", "business"};
constexpr const char *nameParts[] = {"first name",      "given name", "middle name",
                                     "additional name", "last name",  "family name"};

template<class Parts>
QStringList textsOf(const QHash<QString, QString> &texts, const QString &prefix, const Parts &parts)
{
    QStringList found;
    for (const char *part : parts) {
        const QString text = texts.value(prefix + QLatin1String(part));
        if (!text.isEmpty() && !found.contains(text))
            found.append(text);
    }
    return found;
}

QSet<QString> knownCaptions()
{
    QSet<QString> captions;
    for (const CaptionRow &row : captionRows)
        captions.insert(QLatin1String(row.caption));
    for (const char *part : nameParts)
        captions.insert(QLatin1String(part));
    for (const char *kind : placeKinds) {
        for (const char *part : {"address", "street", "city"})
            captions.insert(QLatin1String(kind) + u' ' + QLatin1String(part));
    }
    for (const char *numbered : {"phone 1 - value", "address 1 - street", "address 1 - city"})
        captions.insert(QLatin1String(numbered));
    for (int number = 1; number <= 9; ++number) {
        captions.insert(QStringLiteral("e-mail %1").arg(number));
        captions.insert(QStringLiteral("e-mail %1 - value").arg(number));
    }
    return captions;
}

} // namespace

CsvColumns::CsvColumns(const QStringList &captions)
{
    static const QRegularExpression number(QStringLiteral(" ([0-9]{1,4})\\b"));
    for (const QString &caption : captions) {
        m_captions.append(caption.simplified().toLower());
        if (const auto found = number.match(m_captions.constLast()); found.hasMatch())
            m_numbers.insert(found.captured(1).toInt());
    }
}

bool CsvColumns::isKnown() const
{
    const QSet<QString> known = knownCaptions();
    return std::any_of(m_captions.cbegin(), m_captions.cend(),
                       [&](const QString &caption) { return known.contains(caption); });
}

void CsvColumns::fill(ContactBuilder &builder, const QStringList &row) const
{
    Texts texts;
    for (qsizetype column = 0; column < qMin(row.size(), m_captions.size()); ++column) {
        if (const QString text = row[column].trimmed();
            !text.isEmpty() && !texts.contains(m_captions[column]))
            texts[m_captions[column]] = text;
    }
    for (const CaptionRow &known : captionRows) {
        if (const QString text = texts.value(QLatin1String(known.caption)); !text.isEmpty())
            known.set(builder, text);
    }
    fillNames(builder, texts);
    for (const char *kind : placeKinds)
        fillPlace(builder, texts, QLatin1String(kind));
    for (const int number : m_numbers)
        fillNumbered(builder, texts, number);
}

void CsvColumns::fillNames(ContactBuilder &builder, const Texts &texts)
{
    const auto either = [&](const char *first, const char *second) {
        return texts.value(QLatin1String(first), texts.value(QLatin1String(second)));
    };
    builder.addName(either("first name", "given name"), either("middle name", "additional name"),
                    either("last name", "family name"));
}

void CsvColumns::fillPlace(ContactBuilder &builder, const Texts &texts, const QString &kind)
{
    const QString prefix = kind + u' ';
    const Place place = {
        textsOf(texts, prefix, streetParts).join(u'\n'), textsOf(texts, prefix, cityParts).join(u' '),
        textsOf(texts, prefix, stateParts).join(u' '), textsOf(texts, prefix, zipParts).join(u' ')};
    builder.addPlace(place, {kind == u"home" ? kind : QStringLiteral("work")});
}

/// "E-mail 1 - Value", "Phone 2 - Type" and the like.
void CsvColumns::fillNumbered(ContactBuilder &builder, const Texts &texts, int number)
{
    const auto text = [&](const char *kind, const char *part) {
        return texts.value(
            QStringLiteral("%1 %2%3").arg(QLatin1String(kind)).arg(number).arg(QLatin1String(part)));
    };
    const auto types = [&](const char *kind) {
        return (text(kind, " - type") + u' ' + text(kind, " - label"))
            .toLower()
            .split(u' ', Qt::SkipEmptyParts);
    };
    builder.addEMail(text("e-mail", ""));
    for (const QString &address : text("e-mail", " - value").split(several))
        builder.addEMail(address);
    for (const QString &phone : text("phone", " - value").split(several))
        builder.addPhone(phone, types("phone"));
    QStringList lines = {text("address", " - po box"), text("address", " - extended address"),
                         text("address", " - street"), text("address", " - country")};
    lines.removeAll(QString());
    builder.addPlace({lines.join(u'\n'), text("address", " - city"), text("address", " - region"),
                      text("address", " - postal code")},
                     types("address"));
}
