#include "CsvText.h"

#include "RuntimeError.h"

#include <array>

namespace {

QChar separatorOf(const QString &text)
{
    constexpr std::array separators = {u',', u';', u'\t'};
    std::array<int, 3> counts = {};
    bool isQuoted = false;
    for (const QChar c : text) {
        if (c == u'\n' && !isQuoted)
            break;
        isQuoted ^= c == u'"';
        for (size_t i = 0; i < separators.size() && !isQuoted; ++i)
            counts[i] += c == separators[i];
    }
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    return separators[size_t(most - counts.cbegin())];
}

class Reader
{
public:
    explicit Reader(const QString &text)
        : m_text(text)
        , m_separator(separatorOf(text))
    {}

    QList<QStringList> read();

private:
    void readQuoted(QChar c);
    void readPlain(QChar c);
    void endField();
    void endRow();

    const QString &m_text;
    QChar m_separator;
    QList<QStringList> m_rows;
    QStringList m_row;
    QString m_field;
    int m_line = 1;
    int m_quoteLine = 0; ///< where the last quote began
    bool m_isQuoted = false;
    bool m_wasQuoted = false; ///< the last character ended a quote
};

QList<QStringList> Reader::read()
{
    for (const QChar c : m_text) {
        if (m_isQuoted)
            readQuoted(c);
        else
            readPlain(c);
        m_line += int(c == u'\n');
    }
    if (m_isQuoted)
        throw RuntimeError(ErrorNumber::InvalidFileFormat,
                           QStringLiteral("The quote that begins in line %1 has no end").arg(m_quoteLine));
    endRow();
    return m_rows;
}

void Reader::readQuoted(QChar c)
{
    if (c == u'"') {
        m_isQuoted = false;
        m_wasQuoted = true;
    } else {
        m_field.append(c);
    }
}

void Reader::readPlain(QChar c)
{
    if (c == u'"' && (m_field.isEmpty() || m_wasQuoted)) {
        if (m_wasQuoted)
            m_field.append(c); // doubled
        else
            m_quoteLine = m_line;
        m_isQuoted = true;
    } else if (c == m_separator) {
        endField();
    } else if (c == u'\n') {
        endRow();
    } else {
        m_field.append(c);
    }
    m_wasQuoted = false;
}

void Reader::endField()
{
    m_row.append(m_field);
    m_field.clear();
}

void Reader::endRow()
{
    endField();
    if (m_row.size() > 1 || !m_row.constFirst().isEmpty())
        m_rows.append(m_row);
    m_row.clear();
    m_wasQuoted = false;
}

} // namespace

QList<QStringList> CsvText::read(const QString &text)
{
    return Reader(text).read();
}

QString CsvText::written(const QStringList &row)
{
    QStringList fields;
    for (const QString &field : row)
        fields.append(u'"' + QString(field).replace(u'"', QLatin1String("\"\"")) + u'"');
    return fields.join(u',') + QLatin1String("\r\n");
}
