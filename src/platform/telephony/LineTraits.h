#pragma once

#include <QString>

/// What a line's capabilities say of it. The texts may come from outside.
struct LineTraits
{
    QString name;
    QString provider;
    QString switchInfo;
    QString identity; ///< stays the same for the same line
    bool hasVoice = true;
    bool hasData = false;
    quint32 maxDataRate = 0; ///< bits per second
    QString icon;            ///< its name in icon themes
};
