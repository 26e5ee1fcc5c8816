#include "ContactFitting.h"

#include "FieldLimits.h"

namespace {

constexpr qsizetype otherLength = 255; // fields to which nothing else sets a limit

/// \a text without control characters; a line end or tab is a blank.
QString oneLine(const QString &text)
{
    QString line;
    for (const QChar c : text) {
        const bool isLineEnd = c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        if (c == u'\n' || c == u'\t' || isLineEnd)
            line.append(u' ');
        else if (c.category() != QChar::Other_Control)
            line.append(c);
    }
    return line.trimmed();
}

QString severalLines(const QString &text)
{
    QStringList lines = QString(text).remove(u'\r').split(u'\n');
    for (QString &line : lines)
        line = oneLine(line);
    return lines.join(u'\n').trimmed();
}

/// Not within a character.
QString cut(const QString &text, qsizetype length)
{
    const bool isWithin = text.size() > length && text[length].isLowSurrogate();
    return text.left(isWithin ? length - 1 : length).trimmed();
}

class Fitting
{
public:
    void line(QString &text, qsizetype length, const char *field) { set(text, oneLine(text), length, field); }
    void lines(QString &text, qsizetype length, const char *field)
    {
        set(text, severalLines(text), length, field);
    }
    void reference(QString &text, const char *field);
    void place(Place &place, const char *address, const char *city);

    QStringList remarks() const { return m_remarks; }

private:
    void set(QString &text, const QString &clean, qsizetype length, const char *field);

    QStringList m_remarks;
};

void Fitting::set(QString &text, const QString &clean, qsizetype length, const char *field)
{
    text = cut(clean, length);
    if (clean.size() > length)
        m_remarks.append(
            QStringLiteral("the %1 was cut to %2 characters").arg(QLatin1String(field)).arg(length));
}

void Fitting::reference(QString &text, const char *field)
{
    line(text, FieldLimits::name, field);
    text.replace(u'\'', QChar(0x2019));
}

void Fitting::place(Place &place, const char *address, const char *city)
{
    lines(place.address, FieldLimits::address, address);
    reference(place.city, city);
    reference(place.state, "state");
    line(place.zipCode, otherLength, "postal code");
}

} // namespace

QStringList ContactFitting::fit(Contact &contact)
{
    Fitting fitting;
    fitting.line(contact.salutation, otherLength, "salutation");
    fitting.line(contact.name, FieldLimits::name, "name");
    fitting.line(contact.nickName, FieldLimits::name, "nick name");
    fitting.reference(contact.group, "group");
    fitting.lines(contact.comment, FieldLimits::comment, "comment");
    for (QString &address : contact.eMails)
        fitting.line(address, otherLength, "e-mail address");
    fitting.place(contact.home, "home address", "home city");
    fitting.place(contact.work, "work address", "work city");
    for (const auto phone :
         {&Contact::homePhone1, &Contact::homePhone2, &Contact::homeMobile, &Contact::workPhone1,
          &Contact::workPhone2, &Contact::workFax, &Contact::workMobile})
        fitting.line(contact.*phone, otherLength, "telephone number");
    fitting.line(contact.company, FieldLimits::name, "company");
    fitting.line(contact.post, FieldLimits::name, "position");
    fitting.line(contact.department, FieldLimits::name, "department");
    return fitting.remarks();
}
