#include "VolumeIcon.h"

QString VolumeIcon::nameOf(Volume::Kind kind)
{
    switch (kind) {
    case Volume::Kind::Home:
        return QStringLiteral("user-home");
    case Volume::Kind::Removable:
        return QStringLiteral("drive-removable-media");
    case Volume::Kind::Network:
        return QStringLiteral("folder-remote");
    default:
        return QStringLiteral("drive-harddisk");
    }
}
