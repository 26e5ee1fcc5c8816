#pragma once

#include "Volume.h"

/// The icons of the places where files are.
namespace VolumeIcon {

/// A freedesktop name.
QString nameOf(Volume::Kind kind);

} // namespace VolumeIcon
