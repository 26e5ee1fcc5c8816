#include "LineFinder.h"

#include "MobileLine.h"
#include "ModemList.h"
#include "SerialLine.h"
#include "SipLine.h"

#include <algorithm>

namespace {

std::unique_ptr<TelephoneLine> make(const LineSettings &settings, const ModemList &modems)
{
    switch (settings.kind) {
    case LineSettings::Kind::Sip:
        return std::make_unique<SipLine>(settings);
    case LineSettings::Kind::Mobile:
        return std::make_unique<MobileLine>(settings.label, settings.modem, modems);
    case LineSettings::Kind::Serial:
        return std::make_unique<SerialLine>(settings);
    }
    Q_UNREACHABLE();
}

bool isNamed(const MobileModem &modem, const QList<LineSettings> &settings)
{
    return std::any_of(settings.begin(), settings.end(), [&](const LineSettings &line) {
        return line.kind == LineSettings::Kind::Mobile && line.modem == modem.identifier;
    });
}

} // namespace

std::vector<std::unique_ptr<TelephoneLine>> LineFinder::find(const QList<LineSettings> &settings,
                                                             const ModemList &modems)
{
    std::vector<std::unique_ptr<TelephoneLine>> lines;
    for (const LineSettings &line : settings)
        lines.push_back(make(line, modems));
    for (const MobileModem &modem : modems.modems()) {
        if (!isNamed(modem, settings))
            lines.push_back(std::make_unique<MobileLine>(QString(), modem.identifier, modems));
    }
    return lines;
}
