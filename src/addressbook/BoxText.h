#pragma once

class QLineEdit;
class QString;

namespace BoxText {

/// Shows \a text whole. One that is longer than the box takes, since the database counts a character that the
/// box counts twice, can only be made shorter.
void set(QLineEdit &box, const QString &text);

} // namespace BoxText
