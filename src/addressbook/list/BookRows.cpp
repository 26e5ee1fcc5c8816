#include "BookRows.h"

namespace {

constexpr int numberField = 0;

QString oneLine(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(u'\r', u' ').replace(u'\n', u' ');
}

} // namespace

BookRows::BookRows(const PackedRows &rows, const QString &keyPrefix, const Fields &fields, const QIcon &icon)
    : m_rows(rows)
    , m_keyPrefix(keyPrefix)
    , m_fields(fields)
    , m_icon(icon)
{}

int BookRows::count() const
{
    return int(m_rows.count());
}

QString BookRows::key(int row) const
{
    return m_keyPrefix + m_rows.at(row, numberField).text();
}

QString BookRows::text(int row, int column) const
{
    const int field = m_fields.first + column;
    const QString text = m_rows.at(row, field).textOrEmpty();
    return field == m_fields.address ? oneLine(text) : text;
}
