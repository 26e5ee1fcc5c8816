#include "WrittenFonts.h"

#include "RtfWords.h"

WrittenFonts::WrittenFonts(const QString &standard)
{
    number(standard);
}

int WrittenFonts::number(const QString &family)
{
    const auto known = m_numbers.constFind(family);
    if (known != m_numbers.constEnd())
        return *known;
    m_families.append(family);
    return *m_numbers.insert(family, int(m_families.size()) - 1);
}

QByteArray WrittenFonts::table() const
{
    QByteArray out = "{\\fonttbl";
    for (qsizetype i = 0; i < m_families.size(); ++i) {
        QString name = m_families.at(i);
        out.append('{');
        RtfWords::append(out, "f", int(i));
        out.append("\\fnil ");
        RtfWords::appendText(out, name.remove(u';')); // the sign ends a name
        out.append(";}");
    }
    return out.append('}');
}
