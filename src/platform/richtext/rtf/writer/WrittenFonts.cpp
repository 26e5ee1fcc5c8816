#include "WrittenFonts.h"

#include "RtfWords.h"

namespace {

/// The name as a table can hold it: a semicolon would end it, and what steers text has no meaning in it.
QString plainName(const QString &family)
{
    constexpr char16_t hardHyphen = 0x2011;
    return family.simplified().remove(u';').remove(QChar::SoftHyphen).replace(hardHyphen, u'-');
}

} // namespace

WrittenFonts::WrittenFonts(const QString &standard)
{
    number(standard);
}

int WrittenFonts::number(const QString &family)
{
    const QString name = plainName(family);
    const auto known = m_numbers.constFind(name);
    if (known != m_numbers.constEnd())
        return *known;
    m_names.append(name);
    return *m_numbers.insert(name, int(m_names.size()) - 1);
}

QByteArray WrittenFonts::table() const
{
    QByteArray out = "{\\fonttbl";
    for (qsizetype i = 0; i < m_names.size(); ++i) {
        out.append('{');
        RtfWords::append(out, "f", int(i));
        const QVariantList words =
            m_words.value(m_names.at(i), QVariantList{"\\fnil", QByteArray()}).toList();
        out.append(words.value(0).toByteArray()).append(' ');
        RtfWords::appendText(out, m_names.at(i));
        out.append(words.value(1).toByteArray()).append(";}");
    }
    return out.append('}');
}
