#pragma once

#include "ContactBuilder.h"

#include <QHash>
#include <QStringList>
#include <set>

/// What the columns of a file mean, by their captions: those that CsvWriter writes, and those of other
/// programs. Columns with other captions are left out.
class CsvColumns
{
public:
    explicit CsvColumns(const QStringList &captions);

    /// True when at least one caption is known.
    bool isKnown() const;
    void fill(ContactBuilder &builder, const QStringList &row) const;

private:
    using Texts = QHash<QString, QString>;

    static void fillNames(ContactBuilder &builder, const Texts &texts);
    static void fillPlace(ContactBuilder &builder, const Texts &texts, const QString &kind);
    static void fillNumbered(ContactBuilder &builder, const Texts &texts, int number);

    QStringList m_captions;  ///< simplified and in small letters
    std::set<int> m_numbers; ///< those in captions such as "e-mail 2"
};
