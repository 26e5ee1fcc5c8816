#pragma once

#include "LineExtensionID.h"

#include <QString>

class QWidget;
struct LineDevCaps;
struct LineMessage;

/// The telephone lines of this computer, numbered from 0, and the calls on them. An application initialises
/// the service, opens one line and makes one call at a time on it.
///
/// Every operation returns 0 or a LineError and never waits for a line. What takes time is reported later,
/// from the event loop, to the callback: first the reply to the request that it belongs to, then the states
/// of the call in their order. No message comes for a line that has been closed.
class LineService
{
public:
    using Callback = void (*)(const LineMessage &message);

    virtual ~LineService() = default;

    /// Finds the lines. \a version becomes the highest version that the service has. A second call finds the
    /// lines anew, unless one of them is open.
    virtual qint32 lineInitializeEx(quint32 &application, Callback callback, const QString &name,
                                    quint32 &lines, quint32 &version) = 0;

    /// Agrees upon a version from \a low to \a high. Fails for a line whose device is not there.
    virtual qint32 lineNegotiateAPIVersion(quint32 application, quint32 device, quint32 low, quint32 high,
                                           quint32 &version, LineExtensionID &extension) = 0;

    /// \a version is the one agreed upon; a failure leaves \a capabilities as they were.
    virtual qint32 lineGetDevCaps(quint32 application, quint32 device, quint32 version,
                                  quint32 extensionVersion, LineDevCaps &capabilities) = 0;

    /// \a instance comes back in every message of the line.
    virtual qint32 lineOpen(quint32 application, quint32 device, quint32 &line, quint32 version,
                            quint32 extensionVersion, quintptr instance, quint32 privileges,
                            quint32 mediaModes) = 0;

    /// Returns the identifier of the request, 1 or above, to which a reply will come; then \a call is the
    /// call. Separators in \a number are dropped; what is behind a "," is sent as tones, 2 s later.
    virtual qint32 lineMakeCall(quint32 line, quint32 &call, const QString &number, quint32 country) = 0;

    /// Ends the call. Returns the identifier of the request.
    virtual qint32 lineDrop(quint32 call) = 0;

    /// Sends the tones of \a digits, each one of "0123456789*#", to the far end of a connected call.
    virtual qint32 lineGenerateDigits(quint32 call, const QString &digits) = 0;

    virtual qint32 lineDeallocateCall(quint32 call) = 0;

    /// Ends a call that is left, too; nothing more is reported of it.
    virtual qint32 lineClose(quint32 line) = 0;

    /// Closes what is open.
    virtual qint32 lineShutdown(quint32 application) = 0;

    /// Lets the user edit the lines, beginning with \a device; also where there is none. What was changed
    /// counts at once unless a line is open; the numbers of lines may differ then, so the service is
    /// initialised again. A cancelled dialog is no failure.
    virtual qint32 lineConfigDialog(quint32 device, QWidget *owner, const QString &deviceClass) = 0;

    /// Lets the user edit the rules by which numbers are dialled; \a number is an example and may be null.
    virtual qint32 lineTranslateDialog(quint32 application, quint32 device, quint32 version, QWidget *owner,
                                       const QString &number) = 0;

    /// The name that the icon of the line's kind has in icon themes.
    virtual qint32 lineGetIcon(quint32 device, const QString &deviceClass, QString &icon) = 0;
};
