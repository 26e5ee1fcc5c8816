#include "WsDiscoveryMessage.h"

#include "PrintQt.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// What a Linux service answers, but for the identifiers.
const QByteArray header = "<?xml version=\"1.0\" encoding=\"utf-8\"?><soap:Envelope "
                          "xmlns:soap=\"http://www.w3.org/2003/05/soap-envelope\" "
                          "xmlns:wsa=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\" "
                          "xmlns:wsd=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\" "
                          "xmlns:wsx=\"http://schemas.xmlsoap.org/ws/2004/09/mex\" "
                          "xmlns:wsdp=\"http://schemas.xmlsoap.org/ws/2006/02/devprof\" "
                          "xmlns:pub=\"http://schemas.microsoft.com/windows/pub/2005/"
                          "07\"><soap:Header><wsa:ReplyTo><wsa:Address>urn:"
                          "reply</wsa:Address></wsa:ReplyTo></soap:Header><soap:Body>";
const QByteArray footer = "</soap:Body></soap:Envelope>";

QByteArray envelope(const QByteArray &body)
{
    return header + body + footer;
}

const QByteArray probeMatch =
    "<wsd:ProbeMatches><wsd:ProbeMatch><wsa:EndpointReference><wsa:Address>urn:uuid:1</wsa:Address></"
    "wsa:EndpointReference><wsd:Types>wsdp:Device pub:Computer</wsd:Types><wsd:MetadataVersion>1</"
    "wsd:MetadataVersion></wsd:ProbeMatch></wsd:ProbeMatches>";

QByteArray metadata(const QByteArray &name)
{
    return envelope("<wsx:Metadata><wsdp:Host><wsdp:Types>pub:Computer</wsdp:Types><pub:Computer>" + name +
                    "</pub:Computer></wsdp:Host></wsx:Metadata>");
}

} // namespace

TEST(WsDiscoveryMessage, AMatchHasItsEndpoint)
{
    const auto matches = WsDiscoveryMessage::matches(envelope(probeMatch));
    ASSERT_EQ(matches.size(), 1);
    EXPECT_EQ(matches[0].endpoint, QStringLiteral("urn:uuid:1"));
    EXPECT_EQ(matches[0].addresses, QStringList());
}

TEST(WsDiscoveryMessage, AMatchHasItsAddresses)
{
    const auto matches = WsDiscoveryMessage::matches(envelope(
        "<wsd:ResolveMatches><wsd:ResolveMatch><wsa:EndpointReference><wsa:Address>urn:uuid:2</wsa:Address></"
        "wsa:EndpointReference><wsd:XAddrs> http://10.0.0.2:5357/a\n http://[fe80::1]:5357/b </wsd:XAddrs></"
        "wsd:ResolveMatch></wsd:ResolveMatches>"));
    ASSERT_EQ(matches.size(), 1);
    EXPECT_EQ(matches[0].addresses, QStringList({QStringLiteral("http://10.0.0.2:5357/a"),
                                                 QStringLiteral("http://[fe80::1]:5357/b")}));
}

TEST(WsDiscoveryMessage, TheNameIsBeforeTheWorkgroupOrTheDomain)
{
    EXPECT_EQ(WsDiscoveryMessage::computer(metadata("HOSTB/Workgroup:QUILL")), QStringLiteral("HOSTB"));
    EXPECT_EQ(WsDiscoveryMessage::computer(metadata("HOSTB\\Domain:QUILL")), QStringLiteral("HOSTB"));
    EXPECT_EQ(WsDiscoveryMessage::computer(metadata("HOSTB")), QStringLiteral("HOSTB"));
}

TEST(WsDiscoveryMessage, DocumentTypesAreRefused)
{
    const QByteArray type = "<!DOCTYPE a [<!ENTITY b \"HOSTB\"><!ENTITY c \"&b;&b;&b;\">]>";
    const auto withType = [&](QByteArray message) {
        return message.insert(message.indexOf("<soap:Env"), type);
    };
    EXPECT_EQ(WsDiscoveryMessage::computer(withType(metadata("HOSTB"))), QString());
    EXPECT_EQ(WsDiscoveryMessage::computer(withType(metadata("&c;"))), QString());
    EXPECT_EQ(WsDiscoveryMessage::matches(withType(envelope(probeMatch))).size(), 0);
}

TEST(WsDiscoveryMessage, WhatIsDamagedSaysNothing)
{
    for (const QByteArray &message :
         {QByteArray(), QByteArray("\0\xFF", 2), header + probeMatch, header + metadata("HOSTB") + "<",
          envelope("<wsd:XAddrs>http://a</wsd:XAddrs>"), QByteArray("<a>").repeated(100000)}) {
        EXPECT_EQ(WsDiscoveryMessage::matches(message).size(), 0) << message.left(20).constData();
        EXPECT_EQ(WsDiscoveryMessage::computer(message), QString()) << message.left(20).constData();
    }
}

TEST(WsDiscoveryMessage, StrangersTextIsEscaped)
{
    const QByteArray question = WsDiscoveryMessage::resolve(QStringLiteral("</wsa:Address><a b=\"&"));
    EXPECT_TRUE(question.contains("&lt;/wsa:Address&gt;&lt;a b=&quot;&amp;")) << question.constData();
}

TEST(WsDiscoveryMessage, EachHasAnIdentifierOfItsOwn)
{
    const auto identifierIn = [](const QByteArray &message) {
        static const QRegularExpression id(QStringLiteral("MessageID>(urn:uuid:[0-9a-f-]{36})<"));
        return id.match(QString::fromUtf8(message)).captured(1);
    };
    EXPECT_FALSE(identifierIn(WsDiscoveryMessage::probe()).isEmpty());
    EXPECT_NE(identifierIn(WsDiscoveryMessage::probe()), identifierIn(WsDiscoveryMessage::probe()));
}
