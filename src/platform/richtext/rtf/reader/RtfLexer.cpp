#include "RtfLexer.h"

#include <array>
#include <limits>

namespace {

constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Bytes that end a run of text. Line ends are only there to keep the lines of a file short.
constexpr std::array<bool, 256> makeStops()
{
    std::array<bool, 256> stops{};
    for (const char c : {'{', '}', '\\', '\r', '\n'})
        stops[static_cast<uchar>(c)] = true;
    return stops;
}

constexpr std::array<bool, 256> stops = makeStops();

} // namespace

RtfLexer::RtfLexer(QByteArrayView bytes)
    : m_at(bytes.begin())
    , m_end(bytes.end())
{}

RtfToken RtfLexer::next()
{
    while (m_at != m_end && (*m_at == '\r' || *m_at == '\n'))
        ++m_at;
    if (m_at == m_end)
        return {};

    RtfToken token;
    const char *start = m_at;
    switch (*m_at) {
    case '{':
        ++m_at;
        token.kind = RtfToken::Kind::Open;
        return token;
    case '}':
        ++m_at;
        token.kind = RtfToken::Kind::Close;
        return token;
    case '\\':
        return control();
    default:
        while (m_at != m_end && !stops[static_cast<uchar>(*m_at)])
            ++m_at;
        token.kind = RtfToken::Kind::Text;
        token.text = QByteArrayView(start, m_at);
        return token;
    }
}

RtfToken RtfLexer::control()
{
    ++m_at;
    if (m_at == m_end)
        return {};
    if (isLetter(*m_at))
        return word();
    if (*m_at == '\'')
        return byte();

    RtfToken token;
    token.kind = RtfToken::Kind::Symbol;
    token.text = QByteArrayView(m_at, 1);
    const bool isLineEnd = *m_at == '\r';
    ++m_at;
    if (isLineEnd && m_at != m_end && *m_at == '\n')
        ++m_at;
    return token;
}

RtfToken RtfLexer::word()
{
    const char *start = m_at;
    while (m_at != m_end && isLetter(*m_at))
        ++m_at;
    RtfToken token;
    token.kind = RtfToken::Kind::Word;
    token.text = QByteArrayView(start, m_at);
    token.word = RtfKeywords::find(token.text);
    readParameter(token);
    if (m_at != m_end && *m_at == ' ')
        ++m_at;
    return token;
}

void RtfLexer::readParameter(RtfToken &token)
{
    constexpr qint64 most = std::numeric_limits<int>::max();
    const bool isNegative = m_end - m_at > 1 && m_at[0] == '-' && isDigit(m_at[1]);
    if (isNegative)
        ++m_at;
    qint64 value = 0;
    for (; m_at != m_end && isDigit(*m_at); ++m_at) {
        token.hasParameter = true;
        value = qMin(value * 10 + (*m_at - '0'), most);
    }
    token.parameter = int(isNegative ? -value : value);
}

/// \'xx; without two digits it has no meaning, and what follows is text.
RtfToken RtfLexer::byte()
{
    ++m_at;
    RtfToken token;
    token.kind = RtfToken::Kind::Symbol;
    token.text = QByteArrayView(m_at - 1, 1);
    if (m_end - m_at < 2 || hexDigit(m_at[0]) < 0 || hexDigit(m_at[1]) < 0)
        return token;
    token.kind = RtfToken::Kind::Byte;
    token.byte = static_cast<uchar>(hexDigit(m_at[0]) * 16 + hexDigit(m_at[1]));
    m_at += 2;
    return token;
}

QByteArrayView RtfLexer::take(qsizetype count)
{
    const QByteArrayView taken = rest().first(qBound(qsizetype(0), count, qsizetype(m_end - m_at)));
    m_at += taken.size();
    return taken;
}

void RtfLexer::skipGroup()
{
    qsizetype depth = 0;
    while (m_at != m_end) {
        if (*m_at == '}' && depth-- == 0)
            return;
        if (*m_at == '{')
            ++depth;
        if (*m_at != '\\') {
            ++m_at;
            continue;
        }
        const RtfToken token = control();
        if (token.word == RtfWord::Binary)
            take(token.parameter);
    }
}
