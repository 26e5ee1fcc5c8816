#include "ErrorNumberOf.h"
#include "HttpRequest.h"
#include "HttpServer.h"
#include "PrintQt.h"
#include "ScratchFolder.h"
#include "TransferError.h"

#include <QTimer>
#include <gtest/gtest.h>

namespace {

constexpr HttpLimits patient{.bytes = 1'000'000, .seconds = 60};

struct HttpRequestTest : testing::Test
{
    QByteArray get(const QString &path, const HttpLimits &limits = patient) const
    {
        return HttpRequest::get(server.address(path), limits);
    }
    int errorOf(const QString &path, const HttpLimits &limits = patient) const
    {
        return errorNumberOf([&] { get(path, limits); });
    }

    HttpServer server;
};

} // namespace

TEST_F(HttpRequestTest, GivesTheBodyAsItIs)
{
    const QByteArray body("a\0b\r\n\xff", 6);
    server.answer("/a", body);
    EXPECT_EQ(get(QStringLiteral("/a")), body);
    EXPECT_EQ(server.requests(), QStringList(QStringLiteral("GET /a")));
}

TEST_F(HttpRequestTest, GivesTheBodyWhateverItsStatusIs)
{
    server.answer("/a", "no such file", "404 Not Found");
    server.answer("/b", "sorry", "500 Internal Server Error");
    EXPECT_EQ(get(QStringLiteral("/a")), QByteArray("no such file"));
    EXPECT_EQ(get(QStringLiteral("/b")), QByteArray("sorry"));
}

TEST_F(HttpRequestTest, AsksForNoCompressionAndUndoesNone)
{
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: 3\r\n\r\nabc");
    EXPECT_EQ(get(QStringLiteral("/a")), QByteArray("abc"));
    EXPECT_FALSE(server.lastRequest().contains("Accept-Encoding"));
}

TEST_F(HttpRequestTest, FollowsRedirections)
{
    server.redirect("/a", "/b");
    server.answer("/b", "there");
    EXPECT_EQ(get(QStringLiteral("/a")), QByteArray("there"));
}

TEST_F(HttpRequestTest, EndsWhenRedirectionsTurnInACircle)
{
    server.redirect("/a", "/a");
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::InvalidResponse);
    EXPECT_EQ(server.requests().size(), 11);
}

TEST_F(HttpRequestTest, IsLedToNoOtherKindOfAddress)
{
    const ScratchFolder folder;
    folder.addFile("secret", "secret");
    for (const QByteArray &target : {"file://" + folder.file("secret"), QByteArray("ftp://127.0.0.1/a"),
                                     QByteArray("gopher://127.0.0.1/a")}) {
        server.redirect("/a", target);
        EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::UnknownScheme) << target.constData();
    }
    EXPECT_EQ(errorNumberOf([&] {
                  HttpRequest::get(QStringLiteral("file://") + QString::fromUtf8(folder.file("secret")),
                                   patient);
              }),
              TransferError::UnknownScheme);
}

TEST_F(HttpRequestTest, ABodyThatEndsTooEarlyIsAnError)
{
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::ConnectionLost);
}

TEST_F(HttpRequestTest, BytesBehindTheAnnouncedLengthAreNotTaken)
{
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabcdef");
    EXPECT_EQ(get(QStringLiteral("/a")), QByteArray("abc"));
}

TEST_F(HttpRequestTest, AConnectionThatClosesWithoutAReplyIsAnError)
{
    server.answerRaw("/a", "");
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::ConnectionLost);
}

TEST_F(HttpRequestTest, WhatIsNoReplyIsAnError)
{
    server.answerRaw("/a", "SSH-2.0-OpenSSH_9.2\r\n");
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::UnknownScheme);
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\n");
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::InvalidResponse);
}

TEST_F(HttpRequestTest, ABodyMayHaveTheMostBytesAndNoMore)
{
    server.answer("/a", QByteArray(1000, 'x'));
    EXPECT_EQ(get(QStringLiteral("/a"), {.bytes = 1000, .seconds = 60}).size(), 1000);
    EXPECT_EQ(errorOf(QStringLiteral("/a"), {.bytes = 999, .seconds = 60}), TransferError::InvalidResponse);
}

TEST_F(HttpRequestTest, ABodyWithoutAnEndIsCut)
{
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\n\r\nx", HttpServer::Then::Endless);
    EXPECT_EQ(errorOf(QStringLiteral("/a")), TransferError::InvalidResponse);
}

TEST_F(HttpRequestTest, AServerThatFallsSilentIsNotWaitedFor)
{
    for (const char *reply : {"", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nab"}) {
        server.answerRaw("/a", reply, HttpServer::Then::Stall);
        EXPECT_EQ(errorOf(QStringLiteral("/a"), {.bytes = 10, .seconds = 3600, .secondsWithout = 1}),
                  TransferError::TimedOut)
            << reply;
    }
}

TEST_F(HttpRequestTest, EndsAfterItsTime)
{
    server.answerRaw("/a", "HTTP/1.1 200 OK\r\n", HttpServer::Then::Stall);
    EXPECT_EQ(errorOf(QStringLiteral("/a"), {.bytes = 10, .seconds = 1, .secondsWithout = 3600}),
              TransferError::TimedOut);
}

TEST_F(HttpRequestTest, TellsWhyAHostIsNotReached)
{
    quint16 freePort = 0;
    {
        const HttpServer gone;
        freePort = gone.host().section(u':', 1).toUShort();
    }
    EXPECT_EQ(errorNumberOf(
                  [&] { HttpRequest::get(QStringLiteral("http://127.0.0.1:%1/").arg(freePort), patient); }),
              TransferError::CannotConnect);
    EXPECT_EQ(errorNumberOf([] { HttpRequest::get(QStringLiteral("http://nothing.invalid/"), patient); }),
              TransferError::NameNotResolved);
    EXPECT_EQ(errorNumberOf([] { HttpRequest::get(QStringLiteral("http://a:b:c/"), patient); }),
              TransferError::InvalidUrl);
}

TEST_F(HttpRequestTest, NoEventRunsMeanwhile)
{
    server.answer("/a", "b");
    bool hasRun = false;
    QTimer::singleShot(0, [&] { hasRun = true; });
    get(QStringLiteral("/a"));
    EXPECT_FALSE(hasRun);
}
