#pragma once

#include <QByteArray>
#include <QString>

/// The publisher's update server.
namespace UpdateServer {

/// The server's description of what there is: at most a megabyte.
QByteArray fetchText(const QString &name);

/// A file of an update: at most half a gigabyte.
QByteArray fetchFile(const QString &name);

// Both block without events until the reply is there, and return it whatever its status is. They throw as
// HttpRequest::get does.

} // namespace UpdateServer
