#include "ContactBuilder.h"

#include "DateText.h"

#include <QRegularExpression>

namespace {

using Places = QList<QString Contact::*>;

const Places anyPlace = {&Contact::homePhone1, &Contact::homePhone2, &Contact::homeMobile,
                         &Contact::workPhone1, &Contact::workPhone2, &Contact::workMobile};

Places placesFor(const QStringList &types)
{
    const auto is = [&](const char *type) {
        return types.contains(QLatin1String(type), Qt::CaseInsensitive);
    };
    if (is("fax"))
        return {&Contact::workFax};
    if (is("pager"))
        return {&Contact::workMobile};
    if (is("cell") || is("mobile"))
        return {is("work") ? &Contact::workMobile : &Contact::homeMobile};
    if (is("work"))
        return {&Contact::workPhone1, &Contact::workPhone2};
    return {&Contact::homePhone1, &Contact::homePhone2};
}

std::optional<QDate> valid(int year, int month, int day)
{
    const QDate date(year, month, day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QDate> withoutSeparators(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{4})([0-9]{2})([0-9]{2})\\z"));
    const auto found = form.match(text);
    if (!found.hasMatch())
        return {};
    return valid(found.captured(1).toInt(), found.captured(2).toInt(), found.captured(3).toInt());
}

std::optional<QDate> withoutYear(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A--([0-9]{2})-?([0-9]{2})\\z"));
    const auto found = form.match(text);
    if (!found.hasMatch())
        return {};
    return valid(Contact::unknownYear, found.captured(1).toInt(), found.captured(2).toInt());
}

/// With points the day is first. With slashes either may be, so the date is taken only where one reading is
/// none.
std::optional<QDate> inNumbers(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,2})([./])([0-9]{1,2})\\2([0-9]{4})\\z"));
    const auto found = form.match(text);
    if (!found.hasMatch())
        return {};
    const int first = found.captured(1).toInt();
    const int second = found.captured(3).toInt();
    const int year = found.captured(4).toInt();
    const auto dayFirst = valid(year, second, first);
    if (found.captured(2) == u".")
        return dayFirst;
    const auto monthFirst = valid(year, first, second);
    if (dayFirst && monthFirst && dayFirst != monthFirst)
        return {};
    return dayFirst ? dayFirst : monthFirst;
}

/// The words of \a text in lower case, without the punctuation around them.
QStringList wordsOf(const QString &text)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;.()]+"));
    return text.toCaseFolded().split(separators, Qt::SkipEmptyParts);
}

/// Whether the words of \a part follow each other in \a name. No part of a word counts: "Andrew" has no "Dr".
bool hasWords(const QString &name, const QString &part)
{
    const QString all = u' ' + wordsOf(name).join(u' ') + u' ';
    return all.contains(u' ' + wordsOf(part).join(u' ') + u' ');
}

} // namespace

void ContactBuilder::addName(const QString &given, const QString &middle, const QString &family)
{
    m_composedName = QStringList({given, middle, family}).join(u' ').simplified();
}

void ContactBuilder::addPhone(const QString &number, const QStringList &types)
{
    if (!number.trimmed().isEmpty())
        m_phones.append({number.trimmed(), types});
}

void ContactBuilder::addPlace(const Place &place, const QStringList &types)
{
    if (place.isEmpty())
        return;
    Place &wanted =
        types.contains(QLatin1String("work"), Qt::CaseInsensitive) ? m_contact.work : m_contact.home;
    Place &other = &wanted == &m_contact.work ? m_contact.home : m_contact.work;
    if (wanted.isEmpty())
        wanted = place;
    else if (other.isEmpty())
        other = place;
    else
        remark(QStringLiteral("there is no room for a third address, in \"%1\"").arg(place.city));
}

void ContactBuilder::addEMail(const QString &address)
{
    const QString trimmed = address.trimmed();
    if (!trimmed.isEmpty() && !m_contact.eMails.contains(trimmed))
        m_contact.eMails.append(trimmed);
}

void ContactBuilder::addComment(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return;
    if (!m_contact.comment.isEmpty())
        m_contact.comment += u'\n';
    m_contact.comment += trimmed;
}

void ContactBuilder::addPrefix(const QString &prefix)
{
    const QString word = QString(prefix).remove(u'.').trimmed();
    for (const char *known : {"Mr.", "Miss.", "Mrs.", "M/S."}) {
        const QString salutation = QLatin1String(known);
        if (word.compare(QString(salutation).remove(u'.'), Qt::CaseInsensitive) == 0)
            return addText(&Contact::salutation, QStringLiteral("Prefix"), salutation);
    }
    m_rest.append({QStringLiteral("Prefix"), prefix.trimmed(), true});
}

void ContactBuilder::addSuffix(const QString &suffix)
{
    m_rest.append({QStringLiteral("Suffix"), suffix.trimmed(), true});
}

void ContactBuilder::addText(QString Contact::*field, const QString &label, const QString &text)
{
    if ((m_contact.*field).isEmpty())
        m_contact.*field = text.trimmed();
    else if (m_contact.*field != text.trimmed())
        addRest(label, text);
}

void ContactBuilder::addRest(const QString &label, const QString &text)
{
    m_rest.append({label, text.trimmed()});
}

void ContactBuilder::commentRest()
{
    for (const auto &[label, text, isOfName] : std::as_const(m_rest)) {
        if (!text.isEmpty() && !(isOfName && hasWords(m_contact.name, text)))
            addComment(label + QStringLiteral(": ") + text);
    }
}

void ContactBuilder::setBirthDate(const QString &text)
{
    const QString words = text.trimmed();
    if (words.isEmpty() || words.startsWith(QLatin1String("0/0/"))) // which some programs write for none
        return;
    static const QRegularExpression time(QStringLiteral("[T ].*\\z"));
    const QString day = QString(words).remove(time);
    m_contact.birthDate = DateText::parse(day);
    for (const auto read : {withoutSeparators, withoutYear, inNumbers}) {
        if (!m_contact.birthDate)
            m_contact.birthDate = read(day);
    }
    if (!m_contact.birthDate)
        remark(QStringLiteral("\"%1\" is no clear birth date").arg(words.left(40)));
}

void ContactBuilder::finish(ContactList &list)
{
    if (m_contact.name.trimmed().isEmpty())
        m_contact.name = someName();
    if (m_contact.name.isEmpty()) {
        list.remarks.append(QStringLiteral("An entry without a name was left out."));
        return;
    }
    placePhones();
    commentRest();
    for (const QString &text : std::as_const(m_remarks))
        list.remarks.append(QStringLiteral("%1: %2.").arg(m_contact.name, text));
    list.contacts.append(m_contact);
}

QString ContactBuilder::someName() const
{
    const QString candidates[] = {m_composedName, m_contact.nickName, m_contact.company,
                                  m_contact.eMails.value(0),
                                  m_phones.isEmpty() ? QString() : m_phones[0].number};
    for (const QString &name : candidates) {
        if (!name.trimmed().isEmpty())
            return name.trimmed();
    }
    return {};
}

bool ContactBuilder::placePhone(const Phone &phone, const Places &places)
{
    for (const auto place : places) {
        if ((m_contact.*place).isEmpty()) {
            m_contact.*place = phone.number;
            return true;
        }
    }
    return false;
}

/// Each number in a place of its kind first, then the others where there is room.
void ContactBuilder::placePhones()
{
    m_phones.removeIf([this](const Phone &phone) { return placePhone(phone, placesFor(phone.types)); });
    for (const Phone &phone : std::as_const(m_phones)) {
        if (!placePhone(phone, anyPlace))
            remark(QStringLiteral("there is no room for the number %1").arg(phone.number.left(40)));
    }
}

void ContactBuilder::remark(const QString &text)
{
    m_remarks.append(text);
}
