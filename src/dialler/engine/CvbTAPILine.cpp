#include "CvbTAPILine.h"

#include "LineMessage.h"
#include "LineService.h"
#include "Paths.h"
#include "RuntimeError.h"
#include "mTAPIvb.h"

#include <QIcon>
#include <QPainter>
#include <utility>

namespace {

constexpr quint32 noExtension = 0;

} // namespace

CvbTAPILine::CvbTAPILine(LineService &service, QObject *parent)
    : QObject(parent)
    , m_service(service)
{}

CvbTAPILine::~CvbTAPILine()
{
    Release();
}

void CvbTAPILine::Release()
{
    if (m_hCall != 0)
        m_service.lineDeallocateCall(std::exchange(m_hCall, 0));
    if (m_hLine != 0)
        CloseLine();
    if (m_hLineApp != 0)
        m_service.lineShutdown(std::exchange(m_hLineApp, 0));
}

qint32 CvbTAPILine::LastError()
{
    return std::exchange(m_lastErrorValue, 0);
}

QString CvbTAPILine::ErrorString(qint32 code) const
{
    return mTAPIvb::ErrorString(code);
}

bool CvbTAPILine::isDone(qint32 result)
{
    if (result != 0)
        m_lastErrorValue = result;
    return result == 0;
}

bool CvbTAPILine::Create()
{
    quint32 lines = 0;
    if (!isDone(m_service.lineInitializeEx(m_hLineApp, mTAPIvb::lineCallback, Paths::applicationTitle, lines,
                                           m_hiAPI)))
        return false;
    m_numLines = qint32(lines);
    if (m_numLines < 1)
        return false;
    m_negotiatedVersions.fill(0, m_numLines);
    m_extensionIDs.fill({}, m_numLines);
    for (quint32 device = 0; device < lines; ++device)
        negotiate(device);
    readCapabilities();
    return true;
}

/// A failure is no error of its own: the line shows it by its version 0.
void CvbTAPILine::negotiate(quint32 device)
{
    quint32 version = 0;
    LineExtensionID extension = {};
    if (m_service.lineNegotiateAPIVersion(m_hLineApp, device, m_lowAPI, m_hiAPI, version, extension) != 0)
        return;
    m_negotiatedVersions[device] = version;
    m_extensionIDs[device] = extension;
    m_highestVersion = qMax(m_highestVersion, version);
}

void CvbTAPILine::setCurrentLineID(qint32 line)
{
    if (line < 0 || line >= m_numLines)
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    m_currentLineID = line;
    readCapabilities();
}

void CvbTAPILine::readCapabilities()
{
    LineDevCaps read;
    read.dwTotalSize = LineDevCaps::fixedSize + LineDevCaps::variableSize;
    if (!isDone(m_service.lineGetDevCaps(m_hLineApp, quint32(m_currentLineID), NegotiatedAPIVersion(),
                                         noExtension, read)))
        return;
    m_capabilities = read;
    m_lineName = read.text(read.dwLineNameSize, read.dwLineNameOffset);
    m_providerInfo = read.text(read.dwProviderInfoSize, read.dwProviderInfoOffset);
    m_switchInfo = read.text(read.dwSwitchInfoSize, read.dwSwitchInfoOffset);
}

bool CvbTAPILine::LineSupportsVoiceCalls() const
{
    return (BearerModes() & LineDevCaps::BearerVoice) != 0 &&
           (mediamodes() & LineDevCaps::InteractiveVoice) != 0;
}

bool CvbTAPILine::OpenLine(quint32 Privileges, quint32 MediaModes)
{
    if (m_hLine != 0)
        return false;
    return isDone(m_service.lineOpen(m_hLineApp, quint32(m_currentLineID), m_hLine, NegotiatedAPIVersion(),
                                     noExtension, reinterpret_cast<quintptr>(this), Privileges, MediaModes));
}

/// Keeps the identifier in \a result, or the code.
bool CvbTAPILine::takeRequest(qint32 result, qint32 &request)
{
    if (result >= 1)
        request = result;
    else
        m_lastErrorValue = result;
    return result >= 1;
}

bool CvbTAPILine::MakeCallAsynch(const QString &PhoneNumber)
{
    if (m_hLine == 0 || PhoneNumber.isEmpty())
        return false;
    return takeRequest(m_service.lineMakeCall(m_hLine, m_hCall, PhoneNumber, 0), m_makeCallRequest);
}

bool CvbTAPILine::DropCallAsynch()
{
    if (m_hCall == 0)
        return false;
    return takeRequest(m_service.lineDrop(m_hCall), m_dropCallRequest);
}

bool CvbTAPILine::CloseLine()
{
    if (m_hLine == 0)
        return false;
    return isDone(m_service.lineClose(std::exchange(m_hLine, 0)));
}

bool CvbTAPILine::GenerateDigits(const QString &Digits)
{
    if (m_hCall == 0)
        return false;
    return isDone(m_service.lineGenerateDigits(m_hCall, Digits));
}

bool CvbTAPILine::ConfigDialog(QWidget *hwndOwner, const QString &DeviceClass)
{
    return isDone(m_service.lineConfigDialog(quint32(m_currentLineID), hwndOwner,
                                             DeviceClass.isEmpty() ? QString() : DeviceClass));
}

bool CvbTAPILine::DialingPropertiesDialog(QWidget *hwndOwner, const QString &PhoneNumber)
{
    return isDone(m_service.lineTranslateDialog(m_hLineApp, quint32(m_currentLineID), m_highestVersion,
                                                hwndOwner, PhoneNumber.isEmpty() ? QString() : PhoneNumber));
}

bool CvbTAPILine::PaintDevIcon(QPainter &hDC, int x, int y, int cx, int cy)
{
    QString name;
    if (!isDone(m_service.lineGetIcon(quint32(m_currentLineID), {}, name)))
        return false;
    const QIcon icon = QIcon::fromTheme(name);
    if (icon.isNull())
        return false;
    icon.paint(&hDC, x, y, cx, cy);
    return true;
}

void CvbTAPILine::handle(const LineMessage &message)
{
    if (message.message == LineMessage::CallState)
        handleState(message.param1);
    else if (message.message == LineMessage::Reply)
        handleReply(qint32(message.param1), qint32(message.param2));
}

// The signal is the last step in each case: a handler may delete this object.
void CvbTAPILine::handleState(quint32 state)
{
    switch (state) {
    case LineMessage::Idle:
        if (m_hCall != 0) {
            m_service.lineDeallocateCall(m_hCall);
            CloseLine();
        }
        Q_EMIT Idle(); // Intended: the old handle stays
        break;
    case LineMessage::Connected:
        Q_EMIT Connected();
        break;
    case LineMessage::Disconnected:
        DropCallAsynch();
        Q_EMIT Disconnected();
        break;
    default:
        break;
    }
}

void CvbTAPILine::handleReply(qint32 request, qint32 result)
{
    if (request == 0)
        return; // that of no request
    if (request == m_makeCallRequest) {
        m_makeCallRequest = 0;
        if (result != 0)
            CloseLine();
        Q_EMIT MakeCallResult(result);
    } else if (request == m_dropCallRequest) {
        m_dropCallRequest = 0;
        Q_EMIT DropCallResult(result);
    }
}
