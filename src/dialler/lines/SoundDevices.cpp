#include "SoundDevices.h"

#include <QFile>
#include <QRegularExpression>

QStringList SoundDevices::names()
{
    QStringList found{QStringLiteral("alsa,default")};
    QFile cards(QStringLiteral("/proc/asound/cards"));
    if (!cards.open(QIODevice::ReadOnly))
        return found;
    // " 0 [PCH            ]: HDA-Intel - HDA Intel PCH", and a line with more
    static const QRegularExpression card(QStringLiteral("^ *[0-9]+ \\[(\\S+) *\\]:"),
                                         QRegularExpression::MultilineOption);
    for (const QRegularExpressionMatch &match : card.globalMatch(QString::fromUtf8(cards.readAll())))
        found.append(QStringLiteral("alsa,plughw:CARD=") + match.captured(1));
    return found;
}
