#pragma once

#include <QString>
#include <QTextListFormat>

/// The marks before the items of lists.
namespace ListMark {

bool isNumbered(const QTextListFormat &format);
/// Of a list whose marks are blanks neither is true.
bool isBulleted(const QTextListFormat &format);

/// The format's own number for how items are marked: 0 decimal, 1 and 2 roman, 3 and 4 letters, 23 bullets.
int kind(const QTextListFormat &format);

/// \a number in the style of a numbered list, as it is without the text around it.
QString numeral(QTextListFormat::Style style, int number);

/// The text before and behind the number of an item; Qt puts a dot behind it where the format has none.
QString before(const QTextListFormat &format);
QString behind(const QTextListFormat &format);

/// The sign of a bullet list, perhaps one that needs the list's font; and the sign that is like it in all
/// fonts.
QString bullet(const QTextListFormat &format);
QString usualBullet(const QTextListFormat &format);

/// The mark of the item numbered \a number: "iv.", or the bullet.
QString text(const QTextListFormat &format, int number);

} // namespace ListMark
