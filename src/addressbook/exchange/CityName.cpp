#include "CityName.h"

#include "FieldLimits.h"

namespace {

constexpr qsizetype longest = FieldLimits::name;

QString suffix(const QString &state)
{
    return u'(' + state + u')';
}

} // namespace

QString CityName::withState(const QString &city, const QString &state)
{
    const QString end = suffix(state);
    const qsizetype room = qMax(longest - end.size() - 1, qsizetype(0));
    return (city.left(room).trimmed() + u' ' + end).trimmed().left(longest);
}

QString CityName::withoutState(const QString &name, const QString &state)
{
    const QString end = suffix(state);
    return name.endsWith(end) ? name.chopped(end.size()).trimmed() : name;
}
