#pragma once

#include <QString>

/// Where text and numbers meet. The decimal point is "." whatever the locale.
namespace Numbers {

/// \a value as decimal text of at most 7 significant digits: no trailing zeros, no zero before the point
/// (".5"), an exponent ("1E+07") where plain digits would be longer than that.
QString singleText(float value);

/// The whole of \a text as a number, outer blanks aside. Throws RuntimeError 13 when it is none, 6 when the
/// target type cannot hold it. The whole-number form rounds halves to even.
float toSingle(const QString &text);
qint16 toInteger(const QString &text);

} // namespace Numbers
