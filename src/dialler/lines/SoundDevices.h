#pragma once

#include <QStringList>

namespace SoundDevices {

/// The sound devices of this computer as a SIP line names them, the system's default first.
QStringList names();

} // namespace SoundDevices
