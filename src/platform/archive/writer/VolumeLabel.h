#pragma once

#include <QByteArray>

/// The labels of volumes.
namespace VolumeLabel {

/// The label of the volume that the folder \a path is on; empty where it has none. \a labels is the folder in
/// which the system links the labels to their devices.
QByteArray of(const QByteArray &path, const QByteArray &labels = "/dev/disk/by-label");

} // namespace VolumeLabel
