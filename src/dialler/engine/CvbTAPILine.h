#pragma once

#include "LineDevCaps.h"
#include "LineExtensionID.h"

#include <QList>
#include <QObject>
#include <QString>

class LineService;
class QPainter;
class QWidget;
struct LineMessage;

/// One application's use of the telephone lines: agrees with the service upon versions, reads what the
/// current line is able to do, opens that line, and makes and drops one call on it. It has no window.
///
/// Operations return false where they fail, with the code in LastError(); only setCurrentLineID() throws.
/// Before a call: LowAPI and HiAPI, Create(), CurrentLineID, OpenLine(1, 4), MakeCallAsynch().
class CvbTAPILine : public QObject
{
    Q_OBJECT

public:
    /// \a service has to exist longer than this object.
    explicit CvbTAPILine(LineService &service, QObject *parent = nullptr);
    /// As Release().
    ~CvbTAPILine() override;

    /// Gives back the call, the line, which ends the call, and the service. There are no lines afterwards.
    void Release();

    /// The lowest version to agree upon; 1.3 (0x10003) at first.
    quint32 LowAPI() const { return m_lowAPI; }
    void setLowAPI(quint32 version) { m_lowAPI = version; }
    /// The highest one; 3.0 (0x30000) at first. Create() replaces it by the service's own highest one.
    quint32 HiAPI() const { return m_hiAPI; }
    void setHiAPI(quint32 version) { m_hiAPI = version; }

    /// The code of the last failure, a LineError; 0 when it has been read since.
    qint32 LastError();
    /// The text for a LineError. "Unknown Error" for 0 and for any code that has none.
    QString ErrorString(qint32 code) const;

    /// Finds the lines and agrees with each upon a version. False where there is none, with no code then.
    bool Create();

    /// How many lines there are, those that agreed upon no version among them.
    qint32 numLines() const { return m_numLines; }

    /// The line that all of the following is about; 0 at first.
    qint32 CurrentLineID() const { return m_currentLineID; }
    /// Throws RuntimeError 380, with nothing changed, unless \a line is from 0 to numLines() - 1. Where the
    /// capabilities cannot be read, those of the line before stay, with the code in LastError().
    void setCurrentLineID(qint32 line);

    /// 0 for a line that agreed upon none, and before Create().
    quint32 NegotiatedAPIVersion() const { return m_negotiatedVersions.value(m_currentLineID); }
    quint32 ExtAPI_ID0() const { return extensionWord(0); }
    quint32 ExtAPI_ID1() const { return extensionWord(1); }
    quint32 ExtAPI_ID2() const { return extensionWord(2); }
    quint32 ExtAPI_ID3() const { return extensionWord(3); }

    // Texts with the NUL at their end: a text that is appended is not seen in a control that stops there.
    QString LineName() const { return m_lineName; }
    QString ProviderInfo() const { return m_providerInfo; }
    QString SwitchInfo() const { return m_switchInfo; }

    quint32 PermanentLineID() const { return m_capabilities.dwPermanentLineID; }
    quint32 StringFormat() const { return m_capabilities.dwStringFormat; }
    quint32 numAddresses() const { return m_capabilities.dwNumAddresses; }
    quint32 maxDataRate() const { return m_capabilities.dwMaxRate; }
    quint32 BearerModes() const { return m_capabilities.dwBearerModes; }
    quint32 AddressModes() const { return m_capabilities.dwAddressModes; }
    quint32 mediamodes() const { return m_capabilities.dwMediaModes; }
    quint32 GenerateToneMaxNumFreq() const { return m_capabilities.dwGenerateToneMaxNumFreq; }
    quint32 GenerateToneModes() const { return m_capabilities.dwGenerateToneModes; }
    quint32 numTerminals() const { return m_capabilities.dwNumTerminals; }
    bool LineSupportsVoiceCalls() const;

    /// False with no code where a line is open already.
    bool OpenLine(quint32 Privileges, quint32 MediaModes);
    /// MakeCallResult follows where this is true. False with no code for an empty number, and with no line
    /// open.
    bool MakeCallAsynch(const QString &PhoneNumber);
    /// DropCallResult follows where this is true. False with no code where no call has been made yet.
    bool DropCallAsynch();
    /// False with no code where no line is open. The line is closed in any case.
    bool CloseLine();

    /// Sends the tones of \a Digits, each one of "0123456789*#", to the far end. False with no code where no
    /// call has been made yet, with a code where it is not connected.
    bool GenerateDigits(const QString &Digits);

    /// Lets the user edit the lines, also where there is none yet; Create() finds what was changed.
    bool ConfigDialog(QWidget *hwndOwner, const QString &DeviceClass);
    bool DialingPropertiesDialog(QWidget *hwndOwner, const QString &PhoneNumber);

    /// Draws the icon of the current line, \a cx wide and \a cy high. False where it has none.
    bool PaintDevIcon(QPainter &hDC, int x, int y, int cx, int cy);

    /// What the service reports.
    void handle(const LineMessage &message);

Q_SIGNALS:
    // From the event loop. A handler may delete this object. The codes are 0 or a LineError.

    /// After a code the line is closed, and nothing more follows.
    void MakeCallResult(qint32 ErrorCode);
    void DropCallResult(qint32 ErrorCode);
    void Connected();
    /// The line is closed.
    void Idle();
    void Disconnected();

private:
    quint32 extensionWord(int word) const { return m_extensionIDs.value(m_currentLineID)[word]; }
    bool isDone(qint32 result);
    void negotiate(quint32 device);
    void readCapabilities();
    bool takeRequest(qint32 result, qint32 &request);
    void handleState(quint32 state);
    void handleReply(qint32 request, qint32 result);

    LineService &m_service;
    quint32 m_hLineApp = 0;
    QList<quint32> m_negotiatedVersions;   ///< by line; 0 where there is none
    QList<LineExtensionID> m_extensionIDs; ///< by line
    quint32 m_highestVersion = 0;
    quint32 m_lowAPI = 0x10003;
    quint32 m_hiAPI = 0x30000;
    qint32 m_lastErrorValue = 0;
    qint32 m_numLines = 0;
    qint32 m_currentLineID = 0;
    LineDevCaps m_capabilities;
    QString m_lineName;
    QString m_providerInfo;
    QString m_switchInfo;
    quint32 m_hLine = 0;          ///< 0 when closed
    quint32 m_hCall = 0;          ///< stays after the call
    qint32 m_makeCallRequest = 0; ///< 0 when none is outstanding
    qint32 m_dropCallRequest = 0; ///< 0 when none is outstanding
};
