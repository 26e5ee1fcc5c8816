#include "FtpReplyReader.h"

#include "AsciiDigit.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <utility>

namespace {

/// The code that \a line begins with, 0 for none.
int codeOf(QByteArrayView line)
{
    if (line.size() < 3 || line[0] < '1' || line[0] > '5' || !isAsciiDigit(line[1]) || !isAsciiDigit(line[2]))
        return 0;
    if (line.size() > 3 && line[3] != ' ' && line[3] != '-')
        return 0;
    return (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
}

bool isContinued(QByteArrayView line)
{
    return line.size() > 3 && line[3] == '-';
}

} // namespace

std::optional<FtpReply> FtpReplyReader::take()
{
    std::optional<FtpReply> reply;
    while (!reply) {
        const std::optional<QByteArray> line = nextLine();
        if (m_text.size() + (line ? line->size() : m_bytes.size() - m_begin) > mostBytes)
            throw TransferFailure(TransferError::InvalidResponse);
        if (!line)
            break;
        const int code = codeOf(*line);
        const bool isFirst = m_text.isEmpty();
        if (isFirst && line->isEmpty())
            continue;
        if (isFirst)
            m_code = code;
        m_text += isFirst ? *line : "\r\n" + *line;
        if ((isFirst && code == 0) || (code == m_code && !isContinued(*line)))
            reply = FtpReply{std::exchange(m_code, 0), std::exchange(m_text, {})};
    }
    m_bytes.remove(0, std::exchange(m_begin, 0));
    return reply;
}

void FtpReplyReader::clear()
{
    *this = {};
}

std::optional<QByteArray> FtpReplyReader::nextLine()
{
    const qsizetype end = m_bytes.indexOf('\n', m_begin);
    if (end < 0)
        return {};
    QByteArray line = m_bytes.sliced(m_begin, end - m_begin);
    m_begin = end + 1;
    if (line.endsWith('\r'))
        line.chop(1);
    return line;
}
