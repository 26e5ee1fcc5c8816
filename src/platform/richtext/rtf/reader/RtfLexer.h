#pragma once

#include "RtfKeywords.h"

#include <QByteArrayView>

struct RtfToken
{
    enum class Kind { End, Open, Close, Word, Symbol, Byte, Text };

    Kind kind = Kind::End;
    RtfWord word = RtfWord::Unknown;
    bool hasParameter = false;
    int parameter = 0;      ///< of a Word, clamped to what an int holds
    bool isStarred = false; ///< of a Word: \* is before it
    QByteArrayView text;    ///< of Text: its bytes; of Symbol: the one character; of Word: its spelling; of
                            ///< Byte (\'xx): none
    uchar byte = 0;         ///< of Byte

    /// What a switch such as \b means: on, unless its parameter is 0.
    bool isOn() const { return !hasParameter || parameter != 0; }
    int parameterOr(int standard) const { return hasParameter ? parameter : standard; }
};

/// Cuts bytes into tokens, in one pass and without copying. It knows no group's meaning.
class RtfLexer
{
public:
    explicit RtfLexer(QByteArrayView bytes);

    /// Kind::End at the end of the bytes, again and again.
    RtfToken next();

    /// The next \a count bytes as they are, or as many as there are.
    QByteArrayView take(qsizetype count);

    /// Passes over the rest of the group that is open; its closing brace comes next.
    void skipGroup();

    bool startsWith(QByteArrayView text) const { return rest().startsWith(text); }

private:
    QByteArrayView rest() const { return QByteArrayView(m_at, m_end); }
    RtfToken control();
    RtfToken word();
    RtfToken byte();
    void readParameter(RtfToken &token);

    const char *m_at;
    const char *m_end;
};
