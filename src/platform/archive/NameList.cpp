#include "NameList.h"

#include "RuntimeError.h"

void NameList::append(const QByteArray &name)
{
    if (m_names.size() >= most)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    m_names.append(name);
}
