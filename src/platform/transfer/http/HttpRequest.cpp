#include "HttpRequest.h"

#include "CurlLibrary.h"
#include "RuntimeError.h"
#include "TransferError.h"

#include <memory>

namespace {

constexpr const char *schemes = "http,https";
constexpr long mostRedirections = 10;

struct Body
{
    QByteArray bytes;
    qint64 most;
    int error = 0; ///< why it was not taken on
};

/// A number other than \a count ends the request. It is called by the library, through which no exception may
/// pass.
std::size_t take(const char *data, std::size_t, std::size_t count, void *target) noexcept
{
    auto &body = *static_cast<Body *>(target);
    if (qint64(count) > body.most - body.bytes.size()) {
        body.error = TransferError::InvalidResponse;
        return 0;
    }
    try {
        body.bytes.append(data, qsizetype(count));
    } catch (const std::bad_alloc &) {
        body.error = ErrorNumber::OutOfMemory;
        return 0;
    }
    return count;
}

int errorNumber(CURLcode code)
{
    switch (code) {
    case CURLE_URL_MALFORMAT:
        return TransferError::InvalidUrl;
    case CURLE_UNSUPPORTED_PROTOCOL:
        return TransferError::UnknownScheme;
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
        return TransferError::NameNotResolved;
    case CURLE_COULDNT_CONNECT:
        return TransferError::CannotConnect;
    case CURLE_OPERATION_TIMEDOUT:
        return TransferError::TimedOut;
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return TransferError::ConnectionLost;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CONNECT_ERROR:
        return TransferError::SecureChannel;
    case CURLE_OUT_OF_MEMORY:
        return ErrorNumber::OutOfMemory;
    default:
        return TransferError::InvalidResponse;
    }
}

[[noreturn]] void fail(int number, const QString &address)
{
    throw RuntimeError(number, TransferError::text(number), address);
}

} // namespace

QByteArray HttpRequest::get(const QString &address, const HttpLimits &limits)
{
    const CurlLibrary &curl = CurlLibrary::loaded();
    const std::unique_ptr<CURL, void (*)(CURL *)> request(curl.easyInit(), curl.easyCleanup);
    if (!request)
        fail(ErrorNumber::OutOfMemory, address);
    const auto set = [&](CURLoption option, auto value) {
        if (curl.easySetOption(request.get(), option, value) != CURLE_OK)
            fail(ErrorNumber::OutOfMemory, address);
    };
    Body body{{}, limits.bytes};
    set(CURLOPT_URL, address.toUtf8().constData()); // which the library copies
    set(CURLOPT_PROTOCOLS_STR, schemes);            // those of redirections too
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, mostRedirections);
    set(CURLOPT_WRITEFUNCTION, &take);
    set(CURLOPT_WRITEDATA, static_cast<void *>(&body));
    set(CURLOPT_CONNECTTIMEOUT, long(limits.secondsWithout));
    set(CURLOPT_LOW_SPEED_TIME, long(limits.secondsWithout));
    set(CURLOPT_LOW_SPEED_LIMIT, long(limits.slowest));
    set(CURLOPT_TIMEOUT, long(limits.seconds));
    set(CURLOPT_NOSIGNAL, 1L);   // a slow look-up of a name ends without one too
    set(CURLOPT_QUICK_EXIT, 1L); // and is not waited for
    const CURLcode code = curl.easyPerform(request.get());
    if (code != CURLE_OK)
        fail(body.error != 0 ? body.error : errorNumber(code), address);
    return body.bytes;
}
