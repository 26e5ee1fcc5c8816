#pragma once

#include <QString>
#include <QTextListFormat>

/// How the items of one level of a list are marked and indented.
struct RtfListLevel
{
    static constexpr int bulleted = 23;
    static constexpr int unmarked = 255;
    static constexpr int count = 9;

    int kind = 0; ///< the format's own number: 0 decimal, 1 and 2 roman, 3 and 4 letters, 23 bullets
    int start = 1;
    QString
        text; ///< the bullet; or the mark of a number, where a character below \a count is a level's number
    int font = -1; ///< of the bullet, -1 when the file does not say
    int left = 0;  ///< twips
    int firstLine = 0;
    bool hasIndents = false;

    bool operator==(const RtfListLevel &other) const = default;

    /// \a depth: the level's own number; \a family: that of its font, empty when it has none. A list without
    /// marks, or with blanks for marks, has style ListStyleUndefined.
    QTextListFormat format(int depth, const QString &family) const;
    QTextListFormat::Style style() const;

    /// Whether the mark of the level \a depth has the numbers of other levels too.
    bool hasOtherNumbers(int depth) const;
    /// Puts \a numerals, what levels above say just now, around the number of the level \a depth.
    void setNumerals(QTextListFormat &format, int depth, const QStringList &numerals) const;
};
