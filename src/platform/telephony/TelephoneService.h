#pragma once

#include "LineLimits.h"
#include "LineMessageQueue.h"
#include "LineService.h"
#include "ModemList.h"

#include <memory>
#include <vector>

class LineDialogs;
class OpenLine;
class TelephoneLine;

/// The lines that the user has entered, in their order, and behind them the mobile modems that the user has
/// not entered. It serves one application, which has at most one line open. Modems are looked for from the
/// beginning, so that nobody waits when the lines are asked for a second later.
class TelephoneService : public LineService
{
public:
    /// \a dialogs has to exist longer than this object.
    explicit TelephoneService(LineDialogs &dialogs, const LineLimits &limits = {});
    ~TelephoneService() override;

    qint32 lineInitializeEx(quint32 &application, Callback callback, const QString &name, quint32 &lines,
                            quint32 &version) override;
    qint32 lineNegotiateAPIVersion(quint32 application, quint32 device, quint32 low, quint32 high,
                                   quint32 &version, LineExtensionID &extension) override;
    qint32 lineGetDevCaps(quint32 application, quint32 device, quint32 version, quint32 extensionVersion,
                          LineDevCaps &capabilities) override;
    qint32 lineOpen(quint32 application, quint32 device, quint32 &line, quint32 version,
                    quint32 extensionVersion, quintptr instance, quint32 privileges,
                    quint32 mediaModes) override;
    qint32 lineMakeCall(quint32 line, quint32 &call, const QString &number, quint32 country) override;
    qint32 lineDrop(quint32 call) override;
    qint32 lineGenerateDigits(quint32 call, const QString &digits) override;
    qint32 lineDeallocateCall(quint32 call) override;
    qint32 lineClose(quint32 line) override;
    qint32 lineShutdown(quint32 application) override;
    qint32 lineConfigDialog(quint32 device, QWidget *owner, const QString &deviceClass) override;
    qint32 lineTranslateDialog(quint32 application, quint32 device, quint32 version, QWidget *owner,
                               const QString &number) override;
    qint32 lineGetIcon(quint32 device, const QString &deviceClass, QString &icon) override;

private:
    void findLines();
    TelephoneLine *lineOf(quint32 device) const;
    qint32 checkDevice(quint32 application, quint32 device) const;
    qint32 checkUse(quint32 application, quint32 device, quint32 version) const;
    void closeLine();

    LineDialogs &m_dialogs;
    LineLimits m_limits;
    LineMessageQueue m_messages;
    ModemList m_modems;
    std::vector<std::unique_ptr<TelephoneLine>> m_lines;
    std::unique_ptr<OpenLine> m_openLine;
    quint32 m_application = 0; ///< handles are 0 where there is nothing
    quint32 m_line = 0;
    quint32 m_call = 0;
    quint32 m_lastHandle = 0;
    qint32 m_lastRequest = 0;
};
