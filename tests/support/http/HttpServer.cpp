#include "HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

bool sendAll(int connection, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t sent = ::send(connection, bytes.data(), std::size_t(bytes.size()), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes = bytes.sliced(sent);
    }
    return true;
}

} // namespace

HttpServer::HttpServer()
    : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    , m_stop(::eventfd(0, EFD_CLOEXEC))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *general = reinterpret_cast<sockaddr *>(&address);
    if (::bind(m_listener, general, size) != 0 || ::listen(m_listener, 8) != 0 ||
        ::getsockname(m_listener, general, &size) != 0)
        qFatal("no port for a web server");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

HttpServer::~HttpServer()
{
    ::eventfd_write(m_stop, 1);
    m_thread.join();
    for (const int connection : m_stalled)
        ::close(connection);
    ::close(m_listener);
    ::close(m_stop);
}

QString HttpServer::host() const
{
    return QStringLiteral("127.0.0.1:%1").arg(m_port);
}

void HttpServer::answer(const QByteArray &path, const QByteArray &body, const QByteArray &status)
{
    answerRaw(path, "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                        "\r\nConnection: close\r\n\r\n" + body);
}

void HttpServer::redirect(const QByteArray &path, const QByteArray &target)
{
    answerRaw(path, "HTTP/1.1 302 Found\r\nLocation: " + target +
                        "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
}

void HttpServer::answerRaw(const QByteArray &path, const QByteArray &reply, Then then)
{
    const std::lock_guard guard(m_lock);
    m_answers.insert(path, {reply, then});
}

QStringList HttpServer::requests() const
{
    const std::lock_guard guard(m_lock);
    QStringList lines;
    for (const QByteArray &request : m_requests)
        lines << QString::fromLatin1(request.left(request.indexOf(" HTTP/")));
    return lines;
}

QByteArray HttpServer::lastRequest() const
{
    const std::lock_guard guard(m_lock);
    return m_requests.last();
}

/// False when the thread is to end.
bool HttpServer::waitFor(int descriptor) const
{
    pollfd waited[] = {{m_stop, POLLIN, 0}, {descriptor, POLLIN, 0}};
    ::poll(waited, 2, -1);
    return waited[0].revents == 0;
}

void HttpServer::serve()
{
    while (waitFor(m_listener)) {
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection >= 0)
            serveOne(connection);
    }
}

void HttpServer::serveOne(int connection)
{
    const QByteArray request = readRequest(connection);
    if (!request.isEmpty()) {
        const Answer answer = answerTo(request);
        const bool isSent = sendAll(connection, answer.reply);
        if (answer.then == Then::Stall)
            return m_stalled.push_back(connection);
        const QByteArray more(65536, answer.reply.isEmpty() ? ' ' : answer.reply.back());
        while (isSent && answer.then == Then::Endless && sendAll(connection, more)) {
        }
    }
    ::close(connection);
}

QByteArray HttpServer::readRequest(int connection) const
{
    QByteArray request;
    while (!request.contains("\r\n\r\n") && waitFor(connection)) {
        char bytes[4096];
        const ssize_t got = ::recv(connection, bytes, sizeof bytes, 0);
        if (got <= 0)
            return {};
        request.append(bytes, got);
    }
    return request;
}

HttpServer::Answer HttpServer::answerTo(const QByteArray &request)
{
    const std::lock_guard guard(m_lock);
    m_requests.append(request);
    const qsizetype path = request.indexOf(' ') + 1;
    const Answer missing = {
        "HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\nConnection: close\r\n\r\nNot found", Then::Close};
    return m_answers.value(request.mid(path, request.indexOf(' ', path) - path), missing);
}
