#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariantMap>

/// The fonts that a document being written has named so far, in that order.
class WrittenFonts
{
public:
    /// \a standard is the family of text that names none.
    explicit WrittenFonts(const QString &standard);

    /// The number of \a family; 0 is the standard one.
    int number(const QString &family);

    /// What the table says of families beside their names, as RichTextProperty::FontWords.
    void setWords(const QVariantMap &words) { m_words = words; }

    /// The font table, a group.
    QByteArray table() const;

private:
    QStringList m_names;
    QHash<QString, int> m_numbers;
    QVariantMap m_words;
};
