#include "FtpListing.h"

#include "FileNames.h"
#include "FtpListingLine.h"
#include "TransferError.h"
#include "TransferFailure.h"

#include <utility>

void FtpListing::add(QByteArrayView bytes)
{
    m_size += bytes.size();
    if (m_size > mostBytes)
        throw TransferFailure(TransferError::InvalidResponse);
    for (;;) {
        const qsizetype end = bytes.indexOf('\n');
        const QByteArrayView part = end < 0 ? bytes : bytes.first(end);
        m_skipsRest = m_skipsRest || m_rest.size() + part.size() > longestLine;
        if (!m_skipsRest)
            m_rest += part;
        if (end < 0)
            return;
        if (!std::exchange(m_skipsRest, false))
            addLine(m_rest);
        m_rest.clear();
        bytes = bytes.sliced(end + 1);
    }
}

QString FtpListing::finish()
{
    if (!m_skipsRest)
        addLine(m_rest);
    return std::exchange(m_rows, {});
}

void FtpListing::addLine(QByteArrayView line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    const QByteArray row =
        m_format == Format::Machine ? FtpListingLine::machineRow(line) : FtpListingLine::row(line);
    if (row.isEmpty() || row.contains('\r')) // a row with a line end would look like two
        return;
    if (++m_count > mostRows)
        throw TransferFailure(TransferError::InvalidResponse);
    m_rows += FileNames::fromBytes(row) + QStringLiteral("\r\n");
}
