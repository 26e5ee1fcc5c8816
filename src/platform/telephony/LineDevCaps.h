#pragma once

#include <QString>
#include <array>

/// The capabilities of a line: a fixed part, of which the fields here are used, and behind it a variable part
/// with the texts. The place of a text is its distance from the start of the record, of which the fixed part
/// takes 300 places. A place has one character, and a text ends in a NUL that its size counts.
struct LineDevCaps
{
    static constexpr quint32 fixedSize = 300;
    static constexpr quint32 variableSize = 2001;

    enum BearerMode : quint32 { BearerVoice = 1, BearerData = 8 };
    enum MediaMode : quint32 { InteractiveVoice = 4, DataModem = 16 };
    enum AddressMode : quint32 { DialableAddress = 2 };
    enum StringFormat : quint32 { UnicodeStrings = 3 };

    quint32 dwTotalSize = 0; ///< set by who asks: places of both parts that may be filled
    quint32 dwNeededSize = 0;
    quint32 dwUsedSize = 0;
    quint32 dwProviderInfoSize = 0;
    quint32 dwProviderInfoOffset = 0;
    quint32 dwSwitchInfoSize = 0;
    quint32 dwSwitchInfoOffset = 0;
    quint32 dwLineNameSize = 0;
    quint32 dwLineNameOffset = 0;
    quint32 dwPermanentLineID = 0;
    quint32 dwStringFormat = 0;
    quint32 dwNumAddresses = 0;
    quint32 dwMaxRate = 0;
    quint32 dwBearerModes = 0;
    quint32 dwAddressModes = 0;
    quint32 dwMediaModes = 0;
    quint32 dwGenerateToneModes = 0;
    quint32 dwGenerateToneMaxNumFreq = 0;
    quint32 dwNumTerminals = 0;
    std::array<char16_t, variableSize> variable = {};

    /// The \a size characters at \a offset, NULs among them; empty for a size of 0, an offset of 0 and for
    /// what is not wholly in the variable part.
    QString text(quint32 size, quint32 offset) const;

    /// Puts \a text and a NUL behind the texts that are there. Where dwTotalSize has no room for both, only
    /// dwNeededSize grows.
    void append(const QString &text, quint32 &size, quint32 &offset);
};
