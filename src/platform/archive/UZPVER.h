#pragma once

#include <QByteArray>
#include <array>

/// The version of the unzip library.
struct UZPVER
{
    QByteArray beta; ///< up to a NUL
    std::array<quint8, 4> windll = {};
};
