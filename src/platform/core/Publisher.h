#pragma once

#include <QString>

/// Where the publisher is found. Hosts and pages are in publisher.ini in the program's folder; a host may
/// have a port behind it.
namespace Publisher {

/// The page \a path, which begins with "/", of the publisher's web server.
QString webAddress(const QString &path);
/// The same of the publisher's update server.
QString updateAddress(const QString &path);
/// The address of the page that the file calls \a name; empty where it has none.
QString page(const QString &name);

} // namespace Publisher
