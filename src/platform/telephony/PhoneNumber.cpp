#include "PhoneNumber.h"

#include <algorithm>

namespace {

const QString toneSigns = QStringLiteral("0123456789*#");
const QString separators = QStringLiteral("-()./\u2010\u2011\u2012\u2013");

bool isSeparator(QChar sign)
{
    return sign.category() == QChar::Separator_Space || separators.contains(sign);
}

bool isDigit(QChar sign)
{
    return sign >= u'0' && sign <= u'9';
}

} // namespace

bool PhoneNumber::areTones(const QString &digits)
{
    return std::all_of(digits.cbegin(), digits.cend(), [](QChar sign) { return toneSigns.contains(sign); });
}

std::optional<PhoneNumber> PhoneNumber::fromText(const QString &text)
{
    QString signs = text.trimmed(); // a pasted number may bring a line end
    signs.removeIf(isSeparator);
    if (signs.size() > longest)
        return {};
    const qsizetype comma = signs.indexOf(u',');
    PhoneNumber number;
    number.m_dialled = signs.left(comma);
    if (comma >= 0)
        number.m_tones = signs.mid(comma);

    const QString &dialled = number.m_dialled;
    const bool isInternational = dialled.startsWith(u'+');
    if (!std::any_of(dialled.cbegin(), dialled.cend(), isDigit) ||
        !areTones(dialled.mid(isInternational ? 1 : 0)) || !areTones(QString(number.m_tones).remove(u',')))
        return {};
    return number;
}

PhoneNumber PhoneNumber::withPrefix(const QString &prefix) const
{
    PhoneNumber number = *this;
    if (!m_dialled.startsWith(u'+') && areTones(prefix))
        number.m_dialled.prepend(prefix);
    return number;
}
