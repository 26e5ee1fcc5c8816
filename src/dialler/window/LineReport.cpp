#include "LineReport.h"

#include "CvbTAPILine.h"
#include "NulTerminated.h"

#include <span>

namespace {

struct Mode
{
    int bit;
    const char *name;
};

// In the order of the report.
constexpr Mode bearerModes[] = {
    {0, "LINEBEARERMODE_VOICE"},    {1, "LINEBEARERMODE_SPEECH"},
    {3, "LINEBEARERMODE_DATA"},     {4, "LINEBEARERMODE_ALTSPEECHDATA"},
    {2, "LINEBEARERMODE_MULTIUSE"}, {5, "LINEBEARERMODE_NONCALLSIGNALING"},
};
constexpr Mode addressModes[] = {
    {0, "LINEADDRESSMODE_ADDRESSID"},
    {1, "LINEADDRESSMODE_DIALABLEADDR"},
};
constexpr Mode mediaModes[] = {
    {13, "LINEMEDIAMODE_ADSI"},
    {3, "LINEMEDIAMODE_AUTOMATEDVOICE"},
    {4, "LINEMEDIAMODE_DATAMODEM"},
    {8, "LINEMEDIAMODE_DIGITALDATA"},
    {5, "LINEMEDIAMODE_G3FAX"},
    {7, "LINEMEDIAMODE_G4FAX"},
    {2, "LINEMEDIAMODE_INTERACTIVEVOICE"},
    {12, "LINEMEDIAMODE_MIXED"},
    {6, "LINEMEDIAMODE_TDD"},
    {9, "LINEMEDIAMODE_TELETEX"},
    {11, "LINEMEDIAMODE_TELEX"},
    {1, "LINEMEDIAMODE_UNKNOWN"},
    {10, "LINEMEDIAMODE_VIDEOTEX"},
};
constexpr Mode toneModes[] = {
    {3, "LINETONEMODE_BEEP"},   {4, "LINETONEMODE_BILLING"},  {2, "LINETONEMODE_BUSY"},
    {0, "LINETONEMODE_CUSTOM"}, {1, "LINETONEMODE_RINGBACK"},
};
constexpr const char *stringFormats[] = {
    "STRINGFORMAT_ASCII",
    "STRINGFORMAT_DBCS",
    "STRINGFORMAT_UNICODE",
    "STRINGFORMAT_BINARY",
}; // from 1

QStringList names(std::span<const Mode> modes, quint32 set)
{
    QStringList rows;
    for (const Mode &mode : modes) {
        if (set & (1U << mode.bit))
            rows.append(u'\t' + QString::fromLatin1(mode.name));
    }
    return rows;
}

QStringList stringFormat(quint32 format)
{
    if (format < 1 || format > std::size(stringFormats))
        return {};
    return {QStringLiteral("String Format: ") + QString::fromLatin1(stringFormats[format - 1])};
}

QStringList toneGeneration(const CvbTAPILine &line)
{
    const bool isSupported = line.GenerateToneMaxNumFreq() != 0;
    const QStringList row{QStringLiteral("Line Tone Generation supported: ") +
                          (isSupported ? QStringLiteral("True") : QStringLiteral("False"))};
    return isSupported ? row + names(toneModes, line.GenerateToneModes()) : row;
}

} // namespace

QStringList LineReport::rows(const CvbTAPILine &line)
{
    QStringList rows{
        QStringLiteral("TAPI LINE: #%1").arg(line.CurrentLineID()),
        QStringLiteral("TAPI LINE NAME: ") + name(line),
        QStringLiteral("TAPI PROVIDER INFO: ") + upToNul(line.ProviderInfo()),
        QStringLiteral("TAPI SWITCH INFO: ") + upToNul(line.SwitchInfo()),
        QStringLiteral("Permanent Line ID: %1").arg(line.PermanentLineID()),
    };
    rows += stringFormat(line.StringFormat());
    rows += QStringLiteral("Number of addresses associated with this line: %1").arg(line.numAddresses());
    rows += QStringLiteral("Max data rate: %1").arg(line.maxDataRate());
    rows += QStringLiteral("Bearer Modes supported:");
    rows += names(bearerModes, line.BearerModes());
    rows += QStringLiteral("Address Modes supported:");
    rows += names(addressModes, line.AddressModes());
    rows += QStringLiteral("Media Modes supported:");
    rows += names(mediaModes, line.mediamodes());
    rows += toneGeneration(line);
    rows += QStringLiteral("Number of terminals for this line: %1").arg(line.numTerminals());
    return rows;
}

QString LineReport::name(const CvbTAPILine &line)
{
    return upToNul(line.LineName());
}

bool LineReport::isUnsuitable(const CvbTAPILine &line)
{
    return line.LineName().contains(QLatin1String("IPCONF"), Qt::CaseInsensitive) ||
           line.LineName().contains(QLatin1String("H323"), Qt::CaseInsensitive);
}
