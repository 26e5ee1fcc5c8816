#include "CityName.h"

namespace {

constexpr qsizetype longest = 50;

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
