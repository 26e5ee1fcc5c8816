#pragma once

#include "Contact.h"
#include "PrintQt.h"

/// A contact in the failure messages of the tests: its texts, one after the other.
inline void PrintTo(const Contact &contact, std::ostream *out)
{
    const QStringList texts = {
        contact.salutation,        contact.name,
        contact.nickName,          contact.group,
        contact.comment,           contact.birthDate ? contact.birthDate->toString(Qt::ISODate) : QString(),
        contact.eMails.join(u'+'), contact.home.address,
        contact.home.city,         contact.home.state,
        contact.home.zipCode,      contact.homePhone1,
        contact.homePhone2,        contact.homeMobile,
        contact.work.address,      contact.work.city,
        contact.work.state,        contact.work.zipCode,
        contact.workPhone1,        contact.workPhone2,
        contact.workFax,           contact.workMobile,
        contact.company,           contact.post,
        contact.department};
    PrintTo(texts.join(u'|'), out);
}
