#include "WsDiscoveryMessage.h"

#include <QUuid>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <functional>

namespace {

const QString soap = QStringLiteral("http://www.w3.org/2003/05/soap-envelope");
const QString addressing = QStringLiteral("http://schemas.xmlsoap.org/ws/2004/08/addressing");
const QString discovery = QStringLiteral("http://schemas.xmlsoap.org/ws/2005/04/discovery");
const QString profile = QStringLiteral("http://schemas.xmlsoap.org/ws/2006/02/devprof");
const QString everybody = QStringLiteral("urn:schemas-xmlsoap-org:ws:2005:04:discovery");
const QString anonymous = addressing + QStringLiteral("/role/anonymous");
const QString getAction = QStringLiteral("http://schemas.xmlsoap.org/ws/2004/09/transfer/Get");

QString newIdentifier()
{
    return QStringLiteral("urn:uuid:") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

void writeAddress(QXmlStreamWriter &xml, const QString &element, const QString &address)
{
    xml.writeStartElement(addressing, element);
    xml.writeTextElement(addressing, QStringLiteral("Address"), address);
    xml.writeEndElement();
}

using Part = std::function<void(QXmlStreamWriter &)>;

QByteArray message(const QString &to, const QString &action, const Part &moreHeader, const Part &body)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument();
    xml.writeNamespace(soap, QStringLiteral("soap"));
    xml.writeNamespace(addressing, QStringLiteral("wsa"));
    xml.writeNamespace(discovery, QStringLiteral("wsd"));
    xml.writeNamespace(profile, QStringLiteral("wsdp"));
    xml.writeStartElement(soap, QStringLiteral("Envelope"));
    xml.writeStartElement(soap, QStringLiteral("Header"));
    xml.writeTextElement(addressing, QStringLiteral("To"), to);
    xml.writeTextElement(addressing, QStringLiteral("Action"), action);
    xml.writeTextElement(addressing, QStringLiteral("MessageID"), newIdentifier());
    moreHeader(xml);
    xml.writeEndElement();
    xml.writeStartElement(soap, QStringLiteral("Body"));
    body(xml);
    xml.writeEndDocument();
    return bytes;
}

void nothing(QXmlStreamWriter &)
{}

/// Calls \a step at each element's start. False where the message is to be ignored.
template<class Step>
bool forEachElement(const QByteArray &message, Step &&step)
{
    QXmlStreamReader xml(message);
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::DTD)
            return false;
        if (token == QXmlStreamReader::StartElement)
            step(xml);
    }
    return !xml.hasError();
}

} // namespace

QByteArray WsDiscoveryMessage::probe()
{
    return message(everybody, discovery + QStringLiteral("/Probe"), nothing, [](QXmlStreamWriter &xml) {
        xml.writeStartElement(discovery, QStringLiteral("Probe"));
        xml.writeTextElement(discovery, QStringLiteral("Types"), QStringLiteral("wsdp:Device"));
        xml.writeEndElement();
    });
}

QByteArray WsDiscoveryMessage::resolve(const QString &endpoint)
{
    return message(everybody, discovery + QStringLiteral("/Resolve"), nothing, [&](QXmlStreamWriter &xml) {
        xml.writeStartElement(discovery, QStringLiteral("Resolve"));
        writeAddress(xml, QStringLiteral("EndpointReference"), endpoint);
        xml.writeEndElement();
    });
}

QByteArray WsDiscoveryMessage::get(const QString &endpoint)
{
    const auto sender = [](QXmlStreamWriter &xml) {
        writeAddress(xml, QStringLiteral("ReplyTo"), anonymous);
        writeAddress(xml, QStringLiteral("From"), newIdentifier());
    };
    return message(endpoint, getAction, sender, nothing);
}

QList<WsDiscoveryMessage::Match> WsDiscoveryMessage::matches(const QByteArray &message)
{
    QList<Match> found;
    const bool isWhole = forEachElement(message, [&found](QXmlStreamReader &xml) {
        const QStringView name = xml.name();
        if (name == QLatin1String("ProbeMatch") || name == QLatin1String("ResolveMatch"))
            found.append(Match());
        else if (!found.isEmpty() && name == QLatin1String("Address"))
            found.last().endpoint = xml.readElementText().trimmed();
        else if (!found.isEmpty() && name == QLatin1String("XAddrs"))
            found.last().addresses = xml.readElementText().simplified().split(u' ', Qt::SkipEmptyParts);
    });
    return isWhole ? found : QList<Match>();
}

QString WsDiscoveryMessage::computer(const QByteArray &message)
{
    QString text;
    const bool isWhole = forEachElement(message, [&text](QXmlStreamReader &xml) {
        if (xml.name() == QLatin1String("Computer"))
            text = xml.readElementText().trimmed();
    });
    // "NAME/Workgroup:..." or "NAME\Domain:..."
    return isWhole ? text.section(u'/', 0, 0).section(u'\\', 0, 0) : QString();
}
