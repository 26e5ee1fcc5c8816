#include "TelephoneService.h"

#include "LineDevCaps.h"
#include "LineDialogs.h"
#include "LineError.h"
#include "LineFinder.h"
#include "OpenLine.h"
#include "PhoneNumber.h"
#include "ShownText.h"
#include "TelephoneLine.h"
#include "TelephoneSettings.h"

#include <QCryptographicHash>
#include <QtEndian>
#include <utility>

namespace {

constexpr quint32 highestVersion = 0x20000;

/// A number that is the same at each start, for as long as \a identity is.
quint32 permanentNumber(const QString &identity)
{
    const QByteArray hash = QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256);
    return qFromBigEndian<quint32>(hash.constData()) >> 1;
}

void fill(LineDevCaps &capabilities, const LineTraits &traits)
{
    capabilities.append(ShownText::line(traits.name), capabilities.dwLineNameSize,
                        capabilities.dwLineNameOffset);
    capabilities.append(ShownText::line(traits.provider), capabilities.dwProviderInfoSize,
                        capabilities.dwProviderInfoOffset);
    capabilities.append(ShownText::line(traits.switchInfo), capabilities.dwSwitchInfoSize,
                        capabilities.dwSwitchInfoOffset);
    capabilities.dwPermanentLineID = permanentNumber(traits.identity);
    capabilities.dwStringFormat = LineDevCaps::UnicodeStrings;
    capabilities.dwNumAddresses = 1;
    capabilities.dwMaxRate = traits.maxDataRate;
    capabilities.dwAddressModes = LineDevCaps::DialableAddress;
    if (traits.hasVoice) {
        capabilities.dwBearerModes |= LineDevCaps::BearerVoice;
        capabilities.dwMediaModes |= LineDevCaps::InteractiveVoice;
    }
    if (traits.hasData) {
        capabilities.dwBearerModes |= LineDevCaps::BearerData;
        capabilities.dwMediaModes |= LineDevCaps::DataModem;
    }
}

} // namespace

TelephoneService::TelephoneService(LineDialogs &dialogs, const LineLimits &limits)
    : m_dialogs(dialogs)
    , m_limits(limits)
{}

TelephoneService::~TelephoneService() = default;

qint32 TelephoneService::lineInitializeEx(quint32 &application, Callback callback, const QString &,
                                          quint32 &lines, quint32 &version)
{
    m_messages.setCallback(callback);
    if (!m_openLine)
        findLines();
    if (m_application == 0)
        m_application = ++m_lastHandle;
    application = m_application;
    lines = quint32(m_lines.size());
    version = highestVersion;
    return LineError::None;
}

void TelephoneService::findLines()
{
    m_modems.wait();
    m_lines = LineFinder::find(TelephoneSettings::read().lines, m_modems);
}

TelephoneLine *TelephoneService::lineOf(quint32 device) const
{
    return device < m_lines.size() ? m_lines[device].get() : nullptr;
}

qint32 TelephoneService::checkDevice(quint32 application, quint32 device) const
{
    if (application == 0 || application != m_application)
        return LineError::InvalidApplication;
    return lineOf(device) ? LineError::None : LineError::BadDevice;
}

/// The same for a line that is used with the version that was agreed upon.
qint32 TelephoneService::checkUse(quint32 application, quint32 device, quint32 version) const
{
    const qint32 error = checkDevice(application, device);
    if (error == LineError::None && (version == 0 || version > highestVersion))
        return LineError::IncompatibleVersion;
    return error;
}

qint32 TelephoneService::lineNegotiateAPIVersion(quint32 application, quint32 device, quint32 low,
                                                 quint32 high, quint32 &version, LineExtensionID &extension)
{
    if (const qint32 error = checkDevice(application, device); error != LineError::None)
        return error;
    const quint32 agreed = qMin(high, highestVersion);
    if (agreed < low)
        return LineError::IncompatibleVersion;
    version =
        agreed; // also of a line whose device is missing: to open it fails, and the list keeps its order
    extension = {};
    return LineError::None;
}

qint32 TelephoneService::lineGetDevCaps(quint32 application, quint32 device, quint32 version, quint32,
                                        LineDevCaps &capabilities)
{
    if (const qint32 error = checkUse(application, device, version); error != LineError::None)
        return error;
    if (capabilities.dwTotalSize < LineDevCaps::fixedSize)
        return LineError::StructureTooSmall;
    LineDevCaps filled;
    filled.dwTotalSize = capabilities.dwTotalSize;
    fill(filled, lineOf(device)->traits());
    capabilities = filled;
    return LineError::None;
}

qint32 TelephoneService::lineOpen(quint32 application, quint32 device, quint32 &line, quint32 version,
                                  quint32, quintptr instance, quint32, quint32 mediaModes)
{
    if (const qint32 error = checkUse(application, device, version); error != LineError::None)
        return error;
    if (m_openLine)
        return LineError::InUse;
    TelephoneLine &opened = *lineOf(device);
    if (mediaModes == LineDevCaps::InteractiveVoice && !opened.traits().hasVoice)
        return LineError::InvalidMediaMode;
    if (const qint32 error = opened.open(); error != LineError::None)
        return error;
    m_openLine =
        std::make_unique<OpenLine>(opened, OpenLine::Address{device, instance}, m_messages, m_limits);
    m_line = ++m_lastHandle;
    line = m_line;
    return LineError::None;
}

qint32 TelephoneService::lineMakeCall(quint32 line, quint32 &call, const QString &number, quint32)
{
    if (!m_openLine || line != m_line)
        return LineError::InvalidLine;
    const std::optional<PhoneNumber> written = PhoneNumber::fromText(number);
    if (!written)
        return LineError::InvalidAddress;
    const PhoneNumber dialled = written->withPrefix(TelephoneSettings::read().outsidePrefix);
    const qint32 request = ++m_lastRequest;
    if (const qint32 error = m_openLine->dial(dialled, request); error != LineError::None)
        return error;
    m_call = ++m_lastHandle;
    call = m_call;
    return request;
}

qint32 TelephoneService::lineDrop(quint32 call)
{
    if (!m_openLine || call == 0 || call != m_call)
        return LineError::InvalidCall;
    const qint32 request = ++m_lastRequest;
    const qint32 error = m_openLine->drop(request);
    return error == LineError::None ? request : error;
}

qint32 TelephoneService::lineGenerateDigits(quint32 call, const QString &digits)
{
    if (!m_openLine || call == 0 || call != m_call)
        return LineError::InvalidCall;
    return m_openLine->sendTones(digits);
}

qint32 TelephoneService::lineDeallocateCall(quint32 call)
{
    if (call == 0 || call != m_call)
        return LineError::InvalidCall;
    m_call = 0;
    return LineError::None;
}

qint32 TelephoneService::lineClose(quint32 line)
{
    if (!m_openLine || line != m_line)
        return LineError::InvalidLine;
    closeLine();
    return LineError::None;
}

void TelephoneService::closeLine()
{
    m_openLine.reset();
    m_messages.clear();
    m_line = 0;
    m_call = 0;
}

qint32 TelephoneService::lineShutdown(quint32 application)
{
    if (application == 0 || application != m_application)
        return LineError::InvalidApplication;
    closeLine();
    m_lines.clear();
    m_application = 0;
    return LineError::None;
}

/// Where there is no line, the first one is entered here. What was changed counts from the next call on.
qint32 TelephoneService::lineConfigDialog(quint32 device, QWidget *owner, const QString &)
{
    if (!m_lines.empty() && !lineOf(device))
        return LineError::BadDevice;
    const qint32 error = m_dialogs.editLines(owner, qsizetype(device));
    if (m_application != 0 && !m_openLine)
        findLines();
    return error;
}

qint32 TelephoneService::lineTranslateDialog(quint32 application, quint32, quint32, QWidget *owner,
                                             const QString &number)
{
    if (application == 0 || application != m_application)
        return LineError::InvalidApplication;
    return m_dialogs.editDialingRules(owner, number);
}

qint32 TelephoneService::lineGetIcon(quint32 device, const QString &, QString &icon)
{
    const TelephoneLine *line = lineOf(device);
    if (!line)
        return LineError::BadDevice;
    icon = line->traits().icon;
    return LineError::None;
}
