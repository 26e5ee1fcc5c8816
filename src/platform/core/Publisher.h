#pragma once

#include <QString>

/// Where the publisher is found. The host names are in publisher.ini in the program's folder;
/// each may have a port behind it.
namespace Publisher {

/// The page \a path, which begins with "/", of the publisher's web server.
QString webAddress(const QString &path);
/// The same of the publisher's update server.
QString updateAddress(const QString &path);

} // namespace Publisher
