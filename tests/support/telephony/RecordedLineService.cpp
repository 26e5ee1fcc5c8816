#include "RecordedLineService.h"

#include "LineError.h"
#include "LineMessage.h"

namespace {

QString hex(quint32 number)
{
    return QString::number(number, 16);
}

} // namespace

LineDevCaps RecordedLineService::Line::numbered()
{
    LineDevCaps capabilities;
    capabilities.dwPermanentLineID = 100;
    capabilities.dwStringFormat = 2;
    capabilities.dwNumAddresses = 3;
    capabilities.dwMaxRate = 4;
    capabilities.dwBearerModes = 5;
    capabilities.dwAddressModes = 6;
    capabilities.dwMediaModes = 7;
    capabilities.dwGenerateToneMaxNumFreq = 8;
    capabilities.dwGenerateToneModes = 9;
    capabilities.dwNumTerminals = 10;
    return capabilities;
}

void RecordedLineService::record(const char *operation, const QString &arguments)
{
    operations.append(QString::fromLatin1(operation) + (arguments.isEmpty() ? QString() : u' ' + arguments));
}

void RecordedLineService::report(quint32 message, quint32 param1, quint32 param2) const
{
    m_callback({0, message, m_instance, param1, param2, 0});
}

void RecordedLineService::reportWithoutInstance(quint32 message, quint32 param1) const
{
    m_callback({0, message, 0, param1, 0, 0});
}

qint32 RecordedLineService::lineInitializeEx(quint32 &application, Callback callback, const QString &name,
                                             quint32 &count, quint32 &version)
{
    record("initialize", name + u' ' + hex(version));
    if (initialisation != 0)
        return initialisation;
    m_callback = callback;
    application = 1;
    count = quint32(lines.size());
    version = 0x20000;
    return 0;
}

qint32 RecordedLineService::lineNegotiateAPIVersion(quint32, quint32 device, quint32 low, quint32 high,
                                                    quint32 &version, LineExtensionID &extension)
{
    record("negotiate", QString::number(device) + u' ' + hex(low) + u' ' + hex(high));
    const Line &line = lines[device];
    if (line.negotiation == 0) {
        version = line.version;
        extension = line.extension;
    }
    return line.negotiation;
}

qint32 RecordedLineService::lineGetDevCaps(quint32, quint32 device, quint32 version, quint32,
                                           LineDevCaps &capabilities)
{
    record("caps",
           QString::number(device) + u' ' + hex(version) + u' ' + QString::number(capabilities.dwTotalSize));
    if (version == 0)
        return LineError::IncompatibleVersion;
    LineDevCaps filled = lines[device].capabilities;
    filled.dwTotalSize = capabilities.dwTotalSize;
    filled.append(lines[device].name, filled.dwLineNameSize, filled.dwLineNameOffset);
    filled.append(QStringLiteral("maker"), filled.dwProviderInfoSize, filled.dwProviderInfoOffset);
    filled.append(QStringLiteral("exchange"), filled.dwSwitchInfoSize, filled.dwSwitchInfoOffset);
    filled.dwPermanentLineID += device;
    capabilities = filled;
    return 0;
}

qint32 RecordedLineService::lineOpen(quint32, quint32 device, quint32 &line, quint32 version, quint32,
                                     quintptr instance, quint32 privileges, quint32 mediaModes)
{
    record("open", QString::number(device) + u' ' + hex(version) + u' ' + QString::number(privileges) + u' ' +
                       QString::number(mediaModes));
    if (opening != 0)
        return opening;
    m_instance = instance;
    line = 2;
    return 0;
}

qint32 RecordedLineService::lineMakeCall(quint32 line, quint32 &call, const QString &number, quint32)
{
    record("call", QString::number(line) + u' ' + number);
    if (making >= 1)
        call = 3;
    return making;
}

qint32 RecordedLineService::lineDrop(quint32 call)
{
    record("drop", QString::number(call));
    return dropping;
}

qint32 RecordedLineService::lineGenerateDigits(quint32 call, const QString &digits)
{
    record("tones", QString::number(call) + u' ' + digits);
    return 0;
}

qint32 RecordedLineService::lineDeallocateCall(quint32 call)
{
    record("deallocate", QString::number(call));
    return 0;
}

qint32 RecordedLineService::lineClose(quint32 line)
{
    record("close", QString::number(line));
    return closing;
}

qint32 RecordedLineService::lineShutdown(quint32)
{
    record("shutdown");
    return 0;
}

qint32 RecordedLineService::lineConfigDialog(quint32 device, QWidget *, const QString &deviceClass)
{
    record("config",
           QString::number(device) + (deviceClass.isNull() ? QStringLiteral(" null") : u' ' + deviceClass));
    if (inDialog)
        inDialog();
    return dialog;
}

qint32 RecordedLineService::lineTranslateDialog(quint32, quint32 device, quint32 version, QWidget *,
                                                const QString &number)
{
    record("translate", QString::number(device) + u' ' + hex(version) +
                            (number.isNull() ? QStringLiteral(" null") : u' ' + number));
    return dialog;
}

qint32 RecordedLineService::lineGetIcon(quint32, const QString &, QString &name)
{
    name = icon;
    return 0;
}
