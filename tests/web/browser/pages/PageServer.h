#pragma once

#include <QByteArrayList>
#include <QHash>
#include <QTcpServer>
#include <optional>

class QTcpSocket;

/// A web server on 127.0.0.1 in the test's own event loop. What it was not given is a page with status 404.
class PageServer : public QTcpServer
{
    Q_OBJECT

public:
    /// With a certificate that nobody has signed where \a isSecure.
    explicit PageServer(bool isSecure = false);

    /// "127.0.0.1:port".
    QString host() const;
    QString address(const QString &path) const;

    /// From now on \a path is \a body, with \a headers ("Name: value\r\n" each).
    void page(const QByteArray &path, const QByteArray &body, const QByteArray &headers = {});
    /// A page with the title \a title and \a body.
    void titled(const QByteArray &path, const QByteArray &title, const QByteArray &body = {});
    void redirect(const QByteArray &path, const QByteArray &target);
    /// All bytes of the answer; the connection stays open behind them.
    void raw(const QByteArray &path, const QByteArray &answer);
    /// All bytes of the answer; the connection ends behind them.
    void breakOff(const QByteArray &path, const QByteArray &answer);

    /// A page that begins with \a body and goes on for ever.
    void endless(const QByteArray &path, const QByteArray &body);

    /// Each request so far, as "GET /path".
    const QByteArrayList &requests() const { return m_requests; }
    int requestsFor(const QByteArray &path) const;

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    struct Answer
    {
        QByteArray bytes;
        bool staysOpen = false;
        bool goesOn = false;
    };

    void read(QTcpSocket &connection);
    Answer answerTo(const QByteArray &request) const;

    bool m_isSecure;
    QHash<QByteArray, Answer> m_answers;
    QByteArrayList m_requests;
};
