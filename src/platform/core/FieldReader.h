#pragma once

#include <QString>

/// Takes fields off the text of a data file, one after the other. A comma or a line end of any kind ends a
/// field, so it takes no notice of how many fields a line has. Blanks before a field are skipped. A field
/// that begins with a quotation mark runs to the next one, across commas and line ends.
class FieldReader
{
public:
    explicit FieldReader(const QString &text)
        : m_text(text)
    {}

    bool atEnd() const { return m_next >= m_text.size(); }
    /// Empty at the end.
    QString next();

private:
    QString quoted();
    QString plain();
    void skipDelimiter();

    QString m_text;
    qsizetype m_next = 0;
};
