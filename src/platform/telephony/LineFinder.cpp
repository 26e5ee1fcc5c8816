#include "LineFinder.h"

#include "MobileLine.h"
#include "SerialLine.h"
#include "SipLine.h"

#include <algorithm>

namespace {

/// Takes the modem \a identifier out of \a modems.
std::optional<MobileModem> take(const QString &identifier, QList<MobileModem> &modems)
{
    const auto found = std::find_if(modems.begin(), modems.end(),
                                    [&](const MobileModem &modem) { return modem.identifier == identifier; });
    if (found == modems.end())
        return {};
    const MobileModem modem = *found;
    modems.erase(found);
    return modem;
}

std::unique_ptr<TelephoneLine> make(const LineSettings &settings, QList<MobileModem> &modems)
{
    switch (settings.kind) {
    case LineSettings::Kind::Sip:
        return std::make_unique<SipLine>(settings);
    case LineSettings::Kind::Mobile:
        return std::make_unique<MobileLine>(settings.label, settings.modem, take(settings.modem, modems));
    case LineSettings::Kind::Serial:
        return std::make_unique<SerialLine>(settings);
    }
    Q_UNREACHABLE();
}

} // namespace

std::vector<std::unique_ptr<TelephoneLine>> LineFinder::find(const QList<LineSettings> &settings,
                                                             QList<MobileModem> modems)
{
    std::vector<std::unique_ptr<TelephoneLine>> lines;
    for (const LineSettings &line : settings)
        lines.push_back(make(line, modems));
    for (const MobileModem &modem : modems)
        lines.push_back(std::make_unique<MobileLine>(QString(), modem.identifier, modem));
    return lines;
}
