#pragma once

#include <QString>
#include <optional>

/// A telephone number as it goes out on a line: the signs "0123456789*#", with a "+" at most in front.
/// Nothing else ever reaches a line, so that no number can be a second command to a modem.
class PhoneNumber
{
public:
    static constexpr qsizetype longest = 64; ///< signs, those of the tones among them

    /// The number that a user wrote, without the blanks and line ends around it. Separators (blanks, "-",
    /// "(", ")", ".", "/") are dropped, and what is behind the first "," is to be sent as tones once the call
    /// is answered. Nothing for any other sign, for a number without a digit in front of its first "," and
    /// for one that is too long.
    static std::optional<PhoneNumber> fromText(const QString &text);

    /// \a prefix, if it is made of tones, in front of the number, unless that is an international one.
    PhoneNumber withPrefix(const QString &prefix) const;

    QString dialled() const { return m_dialled; }
    /// Empty, or a "," for each pause of 2 s, and tones; it begins with a ",".
    QString tones() const { return m_tones; }

    /// Whether all of \a digits are tones that a line can send.
    static bool areTones(const QString &digits);

private:
    QString m_dialled;
    QString m_tones;
};
