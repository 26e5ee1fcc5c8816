#pragma once

#include "ContactList.h"

/// One contact in the making, while a file gives its parts in any order. Parts that contacts have only so
/// many places for (telephones, addresses) find a free place; what finds none becomes a remark. Words that
/// have no field become part of the comment.
class ContactBuilder
{
public:
    /// For the parts that have a place of their own.
    Contact &contact() { return m_contact; }

    void addName(const QString &given, const QString &middle, const QString &family);
    /// \a types as vCards have them: "home", "work", "cell", "fax", "pager".
    void addPhone(const QString &number, const QStringList &types);
    void addPlace(const Place &place, const QStringList &types);
    void addEMail(const QString &address);
    void addComment(const QString &text);
    /// "Mr." and the other salutations of the address book have a field. Any other prefix or suffix of a name
    /// has none, unless the name has it in itself.
    void addPrefix(const QString &prefix);
    void addSuffix(const QString &suffix);
    /// A text of which contacts have one only, \a field; a second one has no field.
    void addText(QString Contact::*field, const QString &label, const QString &text);
    /// A text that has no field. It ends up in the comment, under \a label.
    void addRest(const QString &label, const QString &text);
    /// "1999-09-05", "19990905", "5-Sep-1999", "5.9.1999" and, without a year, "--09-05" and "--0905"; a time
    /// behind it is left out. "5/9/1999" is a date only where the day cannot be the month.
    void setBirthDate(const QString &text);

    /// Adds the contact to \a list unless nothing in it could be its name.
    void finish(ContactList &list);

private:
    struct Phone
    {
        QString number;
        QStringList types;
    };
    struct Rest
    {
        QString label;
        QString text;
        bool isOfName = false;
    };

    bool placePhone(const Phone &phone, const QList<QString Contact::*> &places);
    void placePhones();
    void commentRest();
    QString someName() const;
    void remark(const QString &text);

    Contact m_contact;
    QString m_composedName;
    QList<Phone> m_phones;
    QList<Rest> m_rest;
    QStringList m_remarks;
};
