#include "FoundComputers.h"
#include "HttpServer.h"
#include "PrintQt.h"
#include "WsDiscoverySource.h"

#include <QNetworkDatagram>
#include <QUdpSocket>
#include <gtest/gtest.h>

namespace {

QByteArray answer(const QByteArray &kind, const QByteArray &endpoint, const QByteArray &addresses)
{
    return "<e><" + kind + "><Address>" + endpoint + "</Address>" +
           (addresses.isEmpty() ? QByteArray() : "<XAddrs>" + addresses + "</XAddrs>") + "</" + kind +
           "></e>";
}

/// A device on the loopback interface: what it is asked, and what it says to each kind of question.
struct Device
{
    Device()
    {
        socket.bind(QHostAddress::LocalHost, 0);
        QObject::connect(&socket, &QUdpSocket::readyRead, &socket, [this] {
            while (socket.hasPendingDatagrams()) {
                const QNetworkDatagram question = socket.receiveDatagram();
                const bool isProbe = question.data().contains("/Probe<");
                questions << (isProbe ? "Probe" : "Resolve");
                for (const QByteArray &reply : isProbe ? toProbe : toResolve)
                    socket.writeDatagram(question.makeReply(reply));
            }
        });
        web.answer("/it", name("HOSTB"));
    }
    static QByteArray name(const QByteArray &text)
    {
        return "<m><Computer>" + text + "/Workgroup:Q</Computer></m>";
    }
    QByteArray service(const QByteArray &path = "/it") const
    {
        return web.address(QString::fromUtf8(path)).toUtf8();
    }
    WsDiscoveryPlace place() const
    {
        return {{QNetworkInterface::interfaceFromName(QStringLiteral("lo"))},
                QHostAddress(QHostAddress::LocalHost),
                socket.localPort(),
                quint16(QUrl(web.address({})).port())};
    }
    /// What the suite finds.
    QStringList found() const
    {
        WsDiscoverySource source(place());
        const FoundComputers computers(source);
        EXPECT_EQ(computers.end(), true);
        return computers.rows();
    }

    QUdpSocket socket;
    HttpServer web;
    QList<QByteArray> toProbe;
    QList<QByteArray> toResolve;
    QByteArrayList questions;
};

const QStringList foundHostB = {QStringLiteral("HOSTB 127.0.0.1")};

} // namespace

TEST(WsDiscoverySource, ADeviceIsAskedForItsAddressesAndThenForItsName)
{
    Device device;
    device.toProbe = {answer("ProbeMatch", "urn:1", {})};
    device.toResolve = {answer("ResolveMatch", "urn:1", device.service())};
    EXPECT_EQ(device.found(), foundHostB);
    EXPECT_EQ(device.questions, QByteArrayList({"Probe", "Resolve"}));
    EXPECT_EQ(device.web.requests(), QStringList(QStringLiteral("POST /it")));
    EXPECT_TRUE(device.web.lastRequest().contains("urn:1"));
}

TEST(WsDiscoverySource, ADeviceThatSaysItsAddressesIsNotAskedForThem)
{
    Device device;
    device.toProbe = {answer("ProbeMatch", "urn:1", device.service())};
    EXPECT_EQ(device.found(), foundHostB);
    EXPECT_EQ(device.questions, QByteArrayList({"Probe"}));
}

TEST(WsDiscoverySource, AnswersThatComeAgainAskNothingMore)
{
    Device device;
    device.toProbe = QList<QByteArray>(20, answer("ProbeMatch", "urn:1", {}));
    device.toResolve = QList<QByteArray>(20, answer("ResolveMatch", "urn:1", device.service()));
    EXPECT_EQ(device.found(), foundHostB);
    EXPECT_EQ(device.questions.size(), 2);
    EXPECT_EQ(device.web.requests().size(), 1);
}

TEST(WsDiscoverySource, AFloodOfDevicesIsBounded)
{
    Device device;
    for (int i = 0; i < 50; ++i) {
        QByteArray devices;
        for (int j = 0; j < 20; ++j)
            devices += answer("ProbeMatch", "urn:" + QByteArray::number(20 * i + j), device.service());
        device.toProbe << "<all>" + devices + "</all>";
    }
    EXPECT_GT(device.found().size(), 10); // a datagram may be lost
    EXPECT_LE(device.web.requests().size(), 500);
}

TEST(WsDiscoverySource, OnlyTheSendersOwnServiceIsAsked)
{
    Device device;
    HttpServer other;
    const QByteArray own = device.service();
    const QByteArray port = QByteArray::number(device.place().devicePort);
    device.toProbe = {answer("ProbeMatch", "urn:1", "http://127.0.0.2:" + port + "/it"),
                      answer("ProbeMatch", "urn:2", "http://localhost:" + port + "/it"),
                      answer("ProbeMatch", "urn:3", "https://127.0.0.1:" + port + "/it"),
                      answer("ProbeMatch", "urn:4", "http://u:p@127.0.0.1:" + port + "/it"),
                      answer("ProbeMatch", "urn:5", other.address(QStringLiteral("/it")).toUtf8()),
                      answer("ProbeMatch", "urn:6", "file:///etc/passwd"),
                      answer("ProbeMatch", QByteArray("urn:").repeated(100), own),
                      answer("ProbeMatch", {}, own)};
    EXPECT_EQ(device.found(), QStringList());
    EXPECT_EQ(device.web.requests(), QStringList());
    EXPECT_EQ(other.requests(), QStringList());
}

TEST(WsDiscoverySource, TheSendersServiceMayBeOneOfMany)
{
    Device device;
    device.toProbe = {answer("ProbeMatch", "urn:1", "http://[fe80::1]:5357/it " + device.service())};
    EXPECT_EQ(device.found(), foundHostB);
}

TEST(WsDiscoverySource, ItIsNotSentElsewhere)
{
    Device device;
    device.web.redirect("/a", device.service());
    device.toProbe = {answer("ProbeMatch", "urn:1", device.service("/a"))};
    EXPECT_EQ(device.found(), QStringList());
    EXPECT_EQ(device.web.requests(), QStringList(QStringLiteral("POST /a")));
}

TEST(WsDiscoverySource, AnEndlessReplyIsEnded)
{
    Device device;
    device.web.answerRaw("/a", "HTTP/1.1 200 OK\r\n\r\n ", HttpServer::Then::Endless);
    device.toProbe = {answer("ProbeMatch", "urn:1", device.service("/a"))};
    EXPECT_EQ(device.found(), QStringList());
}

TEST(WsDiscoverySource, ADeviceThatFallsSilentIsEnded)
{
    Device device;
    device.web.answerRaw("/a", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + Device::name("HOSTB"),
                         HttpServer::Then::Stall);
    device.toProbe = {answer("ProbeMatch", "urn:1", device.service("/a"))};
    EXPECT_EQ(device.found(), QStringList());
}

TEST(WsDiscoverySource, AnErrorPageIsNoName)
{
    Device device;
    device.web.answer("/a", Device::name("HOSTB"), "404 Not Found");
    device.toProbe = {answer("ProbeMatch", "urn:1", device.service("/a")), "rubbish", {}};
    EXPECT_EQ(device.found(), QStringList());
}

TEST(WsDiscoverySource, AnEmptyNetworkEnds)
{
    EXPECT_EQ(Device().found(), QStringList());
}

TEST(WsDiscoverySource, WithoutANetworkItCannotAsk)
{
    const Device device;
    WsDiscoveryPlace place = device.place();
    place.interfaces.clear();
    WsDiscoverySource source(place);
    EXPECT_EQ(FoundComputers(source).end(), false);
}
