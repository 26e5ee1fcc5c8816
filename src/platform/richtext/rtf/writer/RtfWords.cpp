#include "RtfWords.h"

#include <array>
#include <charconv>
#include <cstring>

namespace {

constexpr qsizetype longestEscape = 9; // "\u-12345?"

/// True for characters that are written as they are.
constexpr std::array<bool, 128> plain = [] {
    std::array<bool, 128> table = {};
    for (int c = ' '; c < 0x7F; ++c)
        table[size_t(c)] = c != '\\' && c != '{' && c != '}';
    return table;
}();

char *copy(char *out, const char *text)
{
    const size_t length = std::strlen(text);
    std::memcpy(out, text, length);
    return out + length;
}

char *escape(char *out, char16_t c)
{
    switch (c) {
    case u'\\':
    case u'{':
    case u'}':
        *out++ = '\\';
        *out++ = char(c);
        return out;
    case u'\t':
        return copy(out, "\\tab ");
    case QChar::LineSeparator:
        return copy(out, "\\line ");
    case QChar::Nbsp:
        return copy(out, "\\~");
    case QChar::SoftHyphen:
        return copy(out, "\\-");
    case 0x2011:
        return copy(out, "\\_");
    default:
        out = copy(out, "\\u");
        out = std::to_chars(out, out + longestEscape, qint16(c)).ptr; // the format's numbers are signed
        *out++ = '?';
        return out;
    }
}

char *encode(char *out, QStringView text)
{
    for (const QChar character : text) {
        const char16_t c = character.unicode();
        if (c < plain.size() && plain[c])
            *out++ = char(c);
        else
            out = escape(out, c);
    }
    return out;
}

} // namespace

void RtfWords::append(QByteArray &out, const char *word)
{
    out.append('\\').append(word);
}

void RtfWords::append(QByteArray &out, const char *word, int number)
{
    std::array<char, 12> digits;
    const char *end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    out.append('\\').append(word).append(digits.data(), end - digits.data());
}

void RtfWords::appendLength(QByteArray &out, const char *word, int length)
{
    append(out, word, qBound(-largestLength, length, largestLength));
}

void RtfWords::appendText(QByteArray &out, QStringView text)
{
    constexpr qsizetype step = 4096; // bounds the room made for the worst case
    for (; !text.isEmpty(); text = text.mid(qMin(step, text.size()))) {
        const QStringView part = text.left(step);
        const qsizetype size = out.size();
        out.resize(size + part.size() * longestEscape);
        const char *end = encode(out.data() + size, part);
        out.truncate(end - out.constData());
    }
}
