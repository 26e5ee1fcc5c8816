#include "FtpListing.h"
#include "FtpPassivePort.h"
#include "FtpReplyReader.h"
#include "TransferFailure.h"

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Hands \a bytes to \a add in parts whose length is \a step.
template<class Add>
void inParts(QByteArrayView bytes, qsizetype step, Add add)
{
    for (qsizetype at = 0; at < bytes.size(); at += step)
        add(bytes.sliced(at, qMin(step, bytes.size() - at)));
}

QString rowsOf(FtpListing::Format format, QByteArrayView bytes, qsizetype step)
{
    FtpListing listing(format);
    inParts(bytes, step, [&](QByteArrayView part) { listing.add(part); });
    return listing.finish();
}

QByteArray repliesOf(QByteArrayView bytes, qsizetype step)
{
    QByteArray replies;
    FtpReplyReader reader;
    try {
        inParts(bytes, step, [&](QByteArrayView part) {
            reader.add(part);
            while (const auto reply = reader.take()) {
                replies += QByteArray::number(reply->code) + reply->text + '\n';
                FtpPassivePort::ofExtended(reply->text);
                FtpPassivePort::ofPlain(reply->text);
            }
        });
    } catch (const TransferFailure &) {
        replies += "too long";
    }
    return replies;
}

} // namespace

/// Reads any bytes as replies and as lists of both formats: at once and in parts has to give the same, and
/// the rows of a list have to be whole. The first byte is the length of the parts.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 2)
        return 0;
    const qsizetype step = data[0] + 1;
    const QByteArrayView bytes(data + 1, qsizetype(size) - 1);
    if (repliesOf(bytes, step) != repliesOf(bytes, bytes.size()))
        fail("replies differ");
    for (const auto format : {FtpListing::Format::Machine, FtpListing::Format::Free}) {
        const QString rows = rowsOf(format, bytes, step);
        if (rows != rowsOf(format, bytes, bytes.size()))
            fail("rows differ");
        if (rows.count(u'\r') != rows.count(QStringLiteral("\r\n")) || rows.count(u'\n') != rows.count(u'\r'))
            fail("a row is not whole");
    }
    return 0;
}
