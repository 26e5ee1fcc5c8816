#pragma once

#include <QByteArray>

/// A minute of silence, as a sound file that baresip can take for a microphone.
QByteArray silentSound();
