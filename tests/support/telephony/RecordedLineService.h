#pragma once

#include "LineDevCaps.h"
#include "LineService.h"

#include <QList>
#include <QStringList>
#include <functional>

/// A line service that a test sets up: it records the operations and answers with what the test has put into
/// its members.
class RecordedLineService : public LineService
{
public:
    struct Line
    {
        QString name;
        qint32 negotiation = 0; ///< what its negotiation returns
        quint32 version = 0x20000;
        LineExtensionID extension = {};
        LineDevCaps capabilities = numbered(); ///< without the texts

        /// Each field has a number of its own; voice calls are among the modes.
        static LineDevCaps numbered();
    };

    QList<Line> lines;
    qint32 initialisation = 0; ///< what the operations return
    qint32 opening = 0;
    qint32 closing = 0;
    qint32 making = 17;
    qint32 dropping = 18;
    qint32 dialog = 0;
    std::function<void()> inDialog; ///< what the user does in the lines' dialog
    QString icon;

    QStringList operations; ///< so far, with what counts of their arguments

    /// Hands a message to the callback.
    void report(quint32 message, quint32 param1, quint32 param2 = 0) const;
    void reportWithoutInstance(quint32 message, quint32 param1) const;

    qint32 lineInitializeEx(quint32 &application, Callback callback, const QString &name, quint32 &count,
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
    qint32 lineGetIcon(quint32 device, const QString &deviceClass, QString &name) override;

private:
    void record(const char *operation, const QString &arguments = {});

    Callback m_callback = nullptr;
    quintptr m_instance = 0;
};
