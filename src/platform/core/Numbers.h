#pragma once

#include <QString>

/// Conversions between text and numbers. The decimal point is "." in every locale.
namespace Numbers {

/// \a value as decimal text of at most 7 significant digits: no trailing zeros, no zero before the point
/// (".5"), an exponent ("1E+07") where plain digits would be longer than that.
QString singleText(float value);

/// \a value as decimal text of at most 15 significant digits: no trailing zeros ("5", "0.5"), an exponent
/// from "1E+15" up and below "0.0001" ("1E-05"). A negative zero is "0".
QString doubleText(double value);

/// The longest beginning of \a text that reads as a number ("12.5.", "1E+3 lines"), blanks skipped wherever
/// they are; 0 when there is none. Never an error: a number beyond the range of a double is the largest one
/// of its sign, so the result is always finite.
double leadingNumber(const QString &text);

/// \a value rounded to \a places decimals, 0 to 8, an exact half to the even neighbour. What is a half is
/// seen in the value's text of 15 digits, so 2.135 and 1.245 are halves at two places although no float is
/// either of them. Throws RuntimeError 6 for an infinity or what is not a number.
double rounded(double value, int places);

/// The whole of \a text as a number, outer blanks aside. Throws RuntimeError 13 when it is none, 6 when the
/// target type cannot hold it. The whole-number form rounds halves to even.
float toSingle(const QString &text);
double toDouble(const QString &text);
qint16 toInteger(const QString &text);

} // namespace Numbers
