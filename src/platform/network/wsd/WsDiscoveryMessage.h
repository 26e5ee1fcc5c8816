#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// The messages of WS-Discovery, in which devices of a network are found and asked what they are.
///
/// Those that are read come from strangers: one that is damaged, or that brings a document type with it, says
/// nothing.
namespace WsDiscoveryMessage {

/// Asks who is there.
QByteArray probe();
/// Asks for the addresses of the device \a endpoint.
QByteArray resolve(const QString &endpoint);
/// Asks the device \a endpoint what it is.
QByteArray get(const QString &endpoint);

struct Match
{
    QString endpoint;
    QStringList addresses; ///< of web services; none where the device has to be asked for them
};

/// The devices in an answer to probe() or resolve().
QList<Match> matches(const QByteArray &message);

/// The computer's name in an answer to get(); empty where it is none.
QString computer(const QByteArray &message);

} // namespace WsDiscoveryMessage
