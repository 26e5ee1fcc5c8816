#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// A web server on 127.0.0.1 that answers from a thread of its own, one request after the other, until it is
/// deleted: a request that blocks the test's thread gets its answer. What is not there is a page with status
/// 404.
class HttpServer
{
public:
    /// What happens behind the bytes of an answer.
    enum class Then {
        Close,
        Stall,  ///< nothing more, and the connection stays
        Endless ///< the last byte again and again, until the client has gone
    };

    HttpServer();
    ~HttpServer();
    HttpServer(const HttpServer &) = delete;
    HttpServer &operator=(const HttpServer &) = delete;

    /// "127.0.0.1:port".
    QString host() const;
    QString address(const QString &path) const { return QStringLiteral("http://") + host() + path; }

    /// Answers requests for \a path from now on.
    void answer(const QByteArray &path, const QByteArray &body, const QByteArray &status = "200 OK");
    void redirect(const QByteArray &path, const QByteArray &target);
    /// The same with all bytes of the reply as they are sent.
    void answerRaw(const QByteArray &path, const QByteArray &reply, Then then = Then::Close);

    /// The first line of each request so far, without the protocol's name.
    QStringList requests() const;
    /// All of the last request.
    QByteArray lastRequest() const;

private:
    struct Answer
    {
        QByteArray reply;
        Then then = Then::Close;
    };

    void serve();
    void serveOne(int connection);
    QByteArray readRequest(int connection) const;
    Answer answerTo(const QByteArray &request);
    bool waitFor(int descriptor) const;

    int m_listener;
    int m_stop; ///< an event that ends the thread
    quint16 m_port = 0;
    mutable std::mutex m_lock;
    QMap<QByteArray, Answer> m_answers;
    QList<QByteArray> m_requests;
    std::vector<int> m_stalled;
    std::thread m_thread;
};
