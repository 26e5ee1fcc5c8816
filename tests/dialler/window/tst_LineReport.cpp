#include "LineReport.h"

#include "CvbTAPILine.h"
#include "PrintQt.h"
#include "RecordedLineService.h"
#include "RowName.h"

#include <gtest/gtest.h>

namespace {

struct LineReportTest : testing::Test
{
    RecordedLineService service;
    CvbTAPILine line{service};

    LineReportTest() { service.lines = {{QStringLiteral("first")}, {QStringLiteral("second")}}; }

    LineDevCaps &capabilities() { return service.lines[1].capabilities; }
    QString report()
    {
        line.Create();
        line.setCurrentLineID(1);
        return LineReport::rows(line).join(u'\n');
    }
};

struct FormatRow
{
    const char *name;
    quint32 format;
    const char *row;
};

struct StringFormatTest : LineReportTest, testing::WithParamInterface<FormatRow>
{};

struct NameRow
{
    const char *name;
    const char *lineName;
    bool isUnsuitable;
};

struct UnsuitableTest : LineReportTest, testing::WithParamInterface<NameRow>
{};

} // namespace

TEST_F(LineReportTest, NamesEveryMode)
{
    capabilities().dwBearerModes = 0xffffffff;
    capabilities().dwAddressModes = 0xffffffff;
    capabilities().dwMediaModes = 0xffffffff;
    capabilities().dwGenerateToneModes = 0xffffffff;
    EXPECT_EQ(report(), QStringLiteral("TAPI LINE: #1\n"
                                       "TAPI LINE NAME: second\n"
                                       "TAPI PROVIDER INFO: maker\n"
                                       "TAPI SWITCH INFO: exchange\n"
                                       "Permanent Line ID: 101\n"
                                       "String Format: STRINGFORMAT_DBCS\n"
                                       "Number of addresses associated with this line: 3\n"
                                       "Max data rate: 4\n"
                                       "Bearer Modes supported:\n"
                                       "\tLINEBEARERMODE_VOICE\n"
                                       "\tLINEBEARERMODE_SPEECH\n"
                                       "\tLINEBEARERMODE_DATA\n"
                                       "\tLINEBEARERMODE_ALTSPEECHDATA\n"
                                       "\tLINEBEARERMODE_MULTIUSE\n"
                                       "\tLINEBEARERMODE_NONCALLSIGNALING\n"
                                       "Address Modes supported:\n"
                                       "\tLINEADDRESSMODE_ADDRESSID\n"
                                       "\tLINEADDRESSMODE_DIALABLEADDR\n"
                                       "Media Modes supported:\n"
                                       "\tLINEMEDIAMODE_ADSI\n"
                                       "\tLINEMEDIAMODE_AUTOMATEDVOICE\n"
                                       "\tLINEMEDIAMODE_DATAMODEM\n"
                                       "\tLINEMEDIAMODE_DIGITALDATA\n"
                                       "\tLINEMEDIAMODE_G3FAX\n"
                                       "\tLINEMEDIAMODE_G4FAX\n"
                                       "\tLINEMEDIAMODE_INTERACTIVEVOICE\n"
                                       "\tLINEMEDIAMODE_MIXED\n"
                                       "\tLINEMEDIAMODE_TDD\n"
                                       "\tLINEMEDIAMODE_TELETEX\n"
                                       "\tLINEMEDIAMODE_TELEX\n"
                                       "\tLINEMEDIAMODE_UNKNOWN\n"
                                       "\tLINEMEDIAMODE_VIDEOTEX\n"
                                       "Line Tone Generation supported: True\n"
                                       "\tLINETONEMODE_BEEP\n"
                                       "\tLINETONEMODE_BILLING\n"
                                       "\tLINETONEMODE_BUSY\n"
                                       "\tLINETONEMODE_CUSTOM\n"
                                       "\tLINETONEMODE_RINGBACK\n"
                                       "Number of terminals for this line: 10"));
}

TEST_F(LineReportTest, NamesNoModeThatIsNotThere)
{
    capabilities() = LineDevCaps();
    capabilities().dwGenerateToneModes = 0xffffffff; // without frequencies they do not count
    EXPECT_EQ(report(), QStringLiteral("TAPI LINE: #1\n"
                                       "TAPI LINE NAME: second\n"
                                       "TAPI PROVIDER INFO: maker\n"
                                       "TAPI SWITCH INFO: exchange\n"
                                       "Permanent Line ID: 1\n"
                                       "Number of addresses associated with this line: 0\n"
                                       "Max data rate: 0\n"
                                       "Bearer Modes supported:\n"
                                       "Address Modes supported:\n"
                                       "Media Modes supported:\n"
                                       "Line Tone Generation supported: False\n"
                                       "Number of terminals for this line: 0"));
}

/// Each bit has its own name.
TEST_F(LineReportTest, NamesSingleModes)
{
    const auto modesIn = [this] {
        QStringList modes;
        for (const QString &row : report().split(u'\n')) {
            if (row.startsWith(u'\t'))
                modes.append(row.mid(1));
        }
        return modes.join(u' ');
    };
    capabilities() = LineDevCaps();
    capabilities().dwGenerateToneMaxNumFreq = 1;
    const auto expect = [&](quint32 LineDevCaps::*field, const QStringList &names) {
        for (int bit = 0; bit < 32; ++bit) {
            capabilities().*field = 1U << bit;
            EXPECT_EQ(modesIn(), names.value(bit)) << bit;
        }
        capabilities().*field = 0;
    };
    const auto words = [](const char *text) { return QString::fromLatin1(text).split(u' '); };
    expect(&LineDevCaps::dwBearerModes,
           words("LINEBEARERMODE_VOICE LINEBEARERMODE_SPEECH LINEBEARERMODE_MULTIUSE LINEBEARERMODE_DATA "
                 "LINEBEARERMODE_ALTSPEECHDATA LINEBEARERMODE_NONCALLSIGNALING"));
    expect(&LineDevCaps::dwAddressModes, words("LINEADDRESSMODE_ADDRESSID LINEADDRESSMODE_DIALABLEADDR"));
    expect(&LineDevCaps::dwMediaModes,
           words(" LINEMEDIAMODE_UNKNOWN LINEMEDIAMODE_INTERACTIVEVOICE LINEMEDIAMODE_AUTOMATEDVOICE "
                 "LINEMEDIAMODE_DATAMODEM LINEMEDIAMODE_G3FAX LINEMEDIAMODE_TDD LINEMEDIAMODE_G4FAX "
                 "LINEMEDIAMODE_DIGITALDATA LINEMEDIAMODE_TELETEX LINEMEDIAMODE_VIDEOTEX "
                 "LINEMEDIAMODE_TELEX LINEMEDIAMODE_MIXED LINEMEDIAMODE_ADSI"));
    expect(&LineDevCaps::dwGenerateToneModes,
           words("LINETONEMODE_CUSTOM LINETONEMODE_RINGBACK LINETONEMODE_BUSY LINETONEMODE_BEEP "
                 "LINETONEMODE_BILLING"));
}

TEST_P(StringFormatTest, HasItsRow)
{
    capabilities().dwStringFormat = GetParam().format;
    QStringList formats = report().split(u'\n').filter(QStringLiteral("String Format"));
    EXPECT_EQ(formats.join(u'|'), QString::fromLatin1(GetParam().row));
}

INSTANTIATE_TEST_SUITE_P(Formats, StringFormatTest,
                         testing::Values(FormatRow{"None", 0, ""},
                                         FormatRow{"Ascii", 1, "String Format: STRINGFORMAT_ASCII"},
                                         FormatRow{"Dbcs", 2, "String Format: STRINGFORMAT_DBCS"},
                                         FormatRow{"Unicode", 3, "String Format: STRINGFORMAT_UNICODE"},
                                         FormatRow{"Binary", 4, "String Format: STRINGFORMAT_BINARY"},
                                         FormatRow{"Unknown", 5, ""}),
                         RowName());

TEST_P(UnsuitableTest, IsSeenByTheName)
{
    service.lines[1].name = QString::fromLatin1(GetParam().lineName);
    report();
    EXPECT_EQ(LineReport::isUnsuitable(line), GetParam().isUnsuitable);
}

INSTANTIATE_TEST_SUITE_P(
    Names, UnsuitableTest,
    testing::Values(NameRow{"Usual", "SIP line Home", false}, NameRow{"Conference", "IPCONF line Home", true},
                    NameRow{"ConferenceSmall", "my ipConf", true}, NameRow{"Video", "The H323 line", true},
                    NameRow{"VideoSmall", "h323", true}, NameRow{"Near", "H.323", false}),
    RowName());
