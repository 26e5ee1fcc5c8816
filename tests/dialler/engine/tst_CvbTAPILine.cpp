#include "CvbTAPILine.h"

#include "ErrorNumberOf.h"
#include "EventGate.h"
#include "LineError.h"
#include "LineMessage.h"
#include "PrintQt.h"
#include "RecordedLineService.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

constexpr quint32 makeRequest = 17; // the service's
constexpr quint32 dropRequest = 18;

struct CvbTAPILineTest : testing::Test
{
    RecordedLineService service;
    std::unique_ptr<CvbTAPILine> line = std::make_unique<CvbTAPILine>(service);
    QStringList events;

    CvbTAPILineTest()
    {
        service.lines = {{QStringLiteral("first")}, {QStringLiteral("second")}};
        const auto record = [this](const char *event) {
            return [this, event](qint32 code) {
                events.append(QString::fromLatin1(event) + u' ' + QString::number(code));
            };
        };
        on(line.get(), &CvbTAPILine::MakeCallResult, line.get(), record("made"));
        on(line.get(), &CvbTAPILine::DropCallResult, line.get(), record("dropped"));
        on(line.get(), &CvbTAPILine::Connected, line.get(),
           [this] { events.append(QStringLiteral("connected")); });
        on(line.get(), &CvbTAPILine::Idle, line.get(), [this] { events.append(QStringLiteral("idle")); });
        on(line.get(), &CvbTAPILine::Disconnected, line.get(),
           [this] { events.append(QStringLiteral("disconnected")); });
    }

    void dial()
    {
        ASSERT_TRUE(line->Create());
        ASSERT_TRUE(line->OpenLine(1, 4));
        ASSERT_TRUE(line->MakeCallAsynch(QStringLiteral("1234")));
        service.operations.clear();
    }

    QString operations()
    {
        const QString all = service.operations.join(QStringLiteral(", "));
        service.operations.clear();
        return all;
    }
};

} // namespace

TEST_F(CvbTAPILineTest, CreateAgreesWithEachLineUponAVersion)
{
    service.lines[1].extension = {11, 12, 13, 14};
    EXPECT_EQ(line->LowAPI(), 0x10003u);
    EXPECT_EQ(line->HiAPI(), 0x30000u);
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(operations(), QStringLiteral("initialize QuillOfficeToolsv2 30000, negotiate 0 10003 20000, "
                                           "negotiate 1 10003 20000, caps 0 20000 2301"));
    EXPECT_EQ(line->HiAPI(), 0x20000u);
    EXPECT_EQ(line->numLines(), 2);
    EXPECT_EQ(line->NegotiatedAPIVersion(), 0x20000u);
    EXPECT_EQ(line->ExtAPI_ID3(), 0u);
    line->setCurrentLineID(1);
    EXPECT_EQ(line->ExtAPI_ID0(), 11u);
    EXPECT_EQ(line->ExtAPI_ID1(), 12u);
    EXPECT_EQ(line->ExtAPI_ID2(), 13u);
    EXPECT_EQ(line->ExtAPI_ID3(), 14u);
}

TEST_F(CvbTAPILineTest, CopiesTheCapabilities)
{
    ASSERT_TRUE(line->Create());
    line->setCurrentLineID(1);
    EXPECT_EQ(line->LineName(), QStringLiteral("second") + QChar(0));
    EXPECT_EQ(line->ProviderInfo(), QStringLiteral("maker") + QChar(0));
    EXPECT_EQ(line->SwitchInfo(), QStringLiteral("exchange") + QChar(0));
    EXPECT_EQ(line->PermanentLineID(), 101u);
    EXPECT_EQ(line->StringFormat(), 2u);
    EXPECT_EQ(line->numAddresses(), 3u);
    EXPECT_EQ(line->maxDataRate(), 4u);
    EXPECT_EQ(line->BearerModes(), 5u);
    EXPECT_EQ(line->AddressModes(), 6u);
    EXPECT_EQ(line->mediamodes(), 7u);
    EXPECT_EQ(line->GenerateToneMaxNumFreq(), 8u);
    EXPECT_EQ(line->GenerateToneModes(), 9u);
    EXPECT_EQ(line->numTerminals(), 10u);
    EXPECT_TRUE(line->LineSupportsVoiceCalls());
}

TEST_F(CvbTAPILineTest, AFailedInitialisationIsKeptInLastErrorForOneRead)
{
    service.initialisation = LineError::NoDriver;
    EXPECT_FALSE(line->Create());
    EXPECT_EQ(line->LastError(), LineError::NoDriver);
    EXPECT_EQ(line->LastError(), 0);
}

TEST_F(CvbTAPILineTest, WithoutLinesCreateFailsWithNoCode)
{
    service.lines.clear();
    EXPECT_FALSE(line->Create());
    EXPECT_EQ(line->LastError(), 0);
    EXPECT_EQ(line->NegotiatedAPIVersion(), 0u);
}

TEST_F(CvbTAPILineTest, ALineWithoutAVersionKeepsThePropertiesOfTheLineBefore)
{
    service.lines[1].negotiation = LineError::NoDevice;
    ASSERT_TRUE(line->Create());
    EXPECT_EQ(line->LastError(), 0);
    line->setCurrentLineID(1);
    EXPECT_EQ(line->CurrentLineID(), 1);
    EXPECT_EQ(line->NegotiatedAPIVersion(), 0u);
    EXPECT_EQ(line->LastError(), LineError::IncompatibleVersion);
    EXPECT_EQ(line->LineName(), QStringLiteral("first") + QChar(0));
    EXPECT_EQ(line->PermanentLineID(), 100u);
}

TEST_F(CvbTAPILineTest, ALineOutOfRangeIsRefused)
{
    ASSERT_TRUE(line->Create());
    line->setCurrentLineID(1);
    EXPECT_EQ(errorNumberOf([&] { line->setCurrentLineID(2); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(errorNumberOf([&] { line->setCurrentLineID(-1); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(line->CurrentLineID(), 1);
}

TEST_F(CvbTAPILineTest, OpensWithTheVersionAgreedUpon)
{
    service.lines[0].version = 0x10004;
    ASSERT_TRUE(line->Create());
    service.operations.clear();
    EXPECT_TRUE(line->OpenLine(1, 4));
    EXPECT_EQ(operations(), QStringLiteral("open 0 10004 1 4"));
}

TEST_F(CvbTAPILineTest, AnOpenLineIsNotOpenedAgain)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    service.operations.clear();
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), 0);
    EXPECT_EQ(operations(), QString());
}

TEST_F(CvbTAPILineTest, ALineThatFailsToOpenCanBeOpenedLater)
{
    ASSERT_TRUE(line->Create());
    service.opening = LineError::InUse;
    EXPECT_FALSE(line->OpenLine(1, 4));
    EXPECT_EQ(line->LastError(), LineError::InUse);
    service.opening = 0;
    EXPECT_TRUE(line->OpenLine(1, 4));
}

TEST_F(CvbTAPILineTest, AnEmptyNumberIsNoCall)
{
    ASSERT_TRUE(line->Create());
    EXPECT_FALSE(line->MakeCallAsynch(QStringLiteral("1"))); // no line is open
    ASSERT_TRUE(line->OpenLine(1, 4));
    service.operations.clear();
    EXPECT_FALSE(line->MakeCallAsynch(QString()));
    EXPECT_EQ(line->LastError(), 0);
    EXPECT_EQ(operations(), QString());
}

TEST_F(CvbTAPILineTest, ARefusedCallKeepsItsCode)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    service.making = LineError::InvalidAddress;
    EXPECT_FALSE(line->MakeCallAsynch(QStringLiteral("x")));
    EXPECT_EQ(line->LastError(), LineError::InvalidAddress);
    EXPECT_FALSE(line->DropCallAsynch()); // there is no call
    EXPECT_EQ(line->LastError(), 0);
}

TEST_F(CvbTAPILineTest, ARequestWithoutANumberIsRefused)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    service.making = 0;
    EXPECT_FALSE(line->MakeCallAsynch(QStringLiteral("x")));
    EXPECT_EQ(line->LastError(), 0);
}

TEST_F(CvbTAPILineTest, ACallThatIsHungUp)
{
    dial();
    service.report(LineMessage::Reply, makeRequest);
    service.report(LineMessage::CallState, LineMessage::Connected);
    EXPECT_TRUE(line->DropCallAsynch());
    EXPECT_EQ(operations(), QStringLiteral("drop 3"));
    service.report(LineMessage::Reply, dropRequest);
    service.dropping = LineError::InvalidCallState;
    service.report(LineMessage::CallState, LineMessage::Disconnected);
    service.report(LineMessage::CallState, LineMessage::Idle);
    EXPECT_EQ(operations(), QStringLiteral("drop 3, deallocate 3, close 2"));
    EXPECT_EQ(events.join(u' '), QStringLiteral("made 0 connected dropped 0 disconnected idle"));
}

TEST_F(CvbTAPILineTest, AFarEndThatIsGoneIsDroppedBeforeTheEvent)
{
    dial();
    QString operationsAtEvent;
    on(line.get(), &CvbTAPILine::Disconnected, line.get(), [&] { operationsAtEvent = operations(); });
    service.report(LineMessage::CallState, LineMessage::Disconnected);
    EXPECT_EQ(operationsAtEvent, QStringLiteral("drop 3"));
}

TEST_F(CvbTAPILineTest, AFailedDialClosesTheLine)
{
    dial();
    service.report(LineMessage::Reply, makeRequest, quint32(LineError::OperationFailed));
    EXPECT_EQ(operations(), QStringLiteral("close 2"));
    EXPECT_EQ(events, QStringList{QStringLiteral("made -2147483576")});
    EXPECT_FALSE(line->CloseLine());
    EXPECT_EQ(line->LastError(), 0);
}

TEST_F(CvbTAPILineTest, AnUnknownReplyRaisesNothing)
{
    dial();
    service.report(LineMessage::Reply, 99);
    service.report(LineMessage::Reply, 0); // no request has this number
    service.report(LineMessage::Reply, makeRequest);
    service.report(LineMessage::Reply, makeRequest); // answered already
    EXPECT_EQ(events, QStringList{QStringLiteral("made 0")});
}

TEST_F(CvbTAPILineTest, IgnoresOtherMessages)
{
    dial();
    service.report(LineMessage::CallState, 0x10);
    service.report(5, LineMessage::Connected);
    service.reportWithoutInstance(LineMessage::CallState, LineMessage::Connected);
    EXPECT_EQ(events, QStringList());
    EXPECT_EQ(operations(), QString());
}

TEST_F(CvbTAPILineTest, AnErrorOfClosingIsKept)
{
    ASSERT_TRUE(line->Create());
    ASSERT_TRUE(line->OpenLine(1, 4));
    service.closing = LineError::OperationFailed;
    EXPECT_FALSE(line->CloseLine());
    EXPECT_EQ(line->LastError(), LineError::OperationFailed);
    EXPECT_FALSE(line->CloseLine()); // it is closed nevertheless
    EXPECT_EQ(line->LastError(), 0);
}

TEST_F(CvbTAPILineTest, DestructionGivesAllBack)
{
    dial();
    line.reset();
    EXPECT_EQ(operations(), QStringLiteral("deallocate 3, close 2, shutdown"));
}

TEST_F(CvbTAPILineTest, DestructionDeallocatesTheCallASecondTime)
{
    dial();
    service.report(LineMessage::CallState, LineMessage::Idle);
    service.operations.clear();
    line.reset();
    EXPECT_EQ(operations(), QStringLiteral("deallocate 3, shutdown"));
}

TEST_F(CvbTAPILineTest, AHandlerMayDeleteIt)
{
    dial();
    on(line.get(), &CvbTAPILine::Idle, qApp, [this] { line.reset(); });
    service.report(LineMessage::CallState, LineMessage::Idle);
    EXPECT_FALSE(line);
}

TEST_F(CvbTAPILineTest, SendsTonesInACall)
{
    EXPECT_FALSE(line->GenerateDigits(QStringLiteral("5")));
    EXPECT_EQ(line->LastError(), 0);
    dial();
    EXPECT_TRUE(line->GenerateDigits(QStringLiteral("5#")));
    EXPECT_EQ(operations(), QStringLiteral("tones 3 5#"));
}

TEST_F(CvbTAPILineTest, ShowsTheDialogsOfTheService)
{
    service.lines[0].version = 0x10004;
    ASSERT_TRUE(line->Create());
    service.operations.clear();
    EXPECT_TRUE(line->ConfigDialog(nullptr, QStringLiteral("")));
    EXPECT_TRUE(line->ConfigDialog(nullptr, QStringLiteral("tapi/line")));
    EXPECT_TRUE(line->DialingPropertiesDialog(nullptr, QStringLiteral("")));
    EXPECT_TRUE(line->DialingPropertiesDialog(nullptr, QStringLiteral("12")));
    EXPECT_EQ(operations(), QStringLiteral("config 0 null, config 0 tapi/line, "
                                           "translate 0 20000 null, translate 0 20000 12"));
    service.dialog = LineError::OperationFailed;
    EXPECT_FALSE(line->ConfigDialog(nullptr, QString()));
    EXPECT_EQ(line->LastError(), LineError::OperationFailed);
}

TEST_F(CvbTAPILineTest, PaintsTheIconWhereThereIsOne)
{
    QIcon::setThemeSearchPaths({QStringLiteral("/usr/share/icons")});
    QIcon::setThemeName(QStringLiteral("breeze"));
    ASSERT_TRUE(line->Create());
    QImage image(40, 40, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QImage before = image;
    QPainter painter(&image);
    service.icon = QStringLiteral("no-such-icon-anywhere");
    EXPECT_FALSE(line->PaintDevIcon(painter, 4, 4, 32, 32));
    service.icon = QStringLiteral("phone");
    EXPECT_TRUE(line->PaintDevIcon(painter, 4, 4, 32, 32));
    painter.end();
    EXPECT_NE(image, before);
}

TEST_F(CvbTAPILineTest, EqualNamesAreEqualButHideWhatFollowsThem)
{
    service.lines[1].name = service.lines[0].name;
    ASSERT_TRUE(line->Create());
    const QString first = line->LineName();
    line->setCurrentLineID(1);
    EXPECT_EQ(line->LineName(), first);
    const QByteArray shown((first + QStringLiteral(" suffix")).toUtf8().constData()); // up to the NUL
    EXPECT_EQ(shown, "first");
}

namespace {

/// From 0x80000001 on.
constexpr const char *errorTexts[] = {
    "Allocated",
    "Bad Device ID",
    "Bearer Mode Unavail",
    nullptr,
    "Call UnAvail",
    "Completion Overrun",
    "Conference Full",
    "Dial Billing",
    "Dial Dialtone",
    "Dial Prompt",
    "Dial Quiet",
    "Incompatible API Version",
    "Incompatible Ext Version",
    "Ini File Corrupt",
    "In Use",
    "Invalid Address",
    "Invalid Address ID",
    "Invalid Address Mode",
    "Invalid Address State",
    "Invalid App Handle",
    "Invalid App Name",
    "Invalid Bearer Mode",
    "Invalid Call Completion Mode",
    "Invalid Call Handle",
    "Invalid Call Params",
    "Invalid Call Privilege",
    "Invalid Call Select",
    "Invalid Call State",
    "Invalid Call State List",
    "Invalid Card",
    "Invalid Completion ID",
    "Invalid Conf Call Handle",
    "Invalid Consult Call Handle",
    "Invalid Country Code",
    "Invalid Device Class",
    "Invalid Device Handle",
    nullptr,
    "Invalid Digit List",
    "Invalid Digit Mode",
    "Invalid Digits",
    "Invalid Ext Version",
    "Invalid Group ID",
    "Invalid Line Handle",
    "Invalid Line State",
    "Invalid Location",
    "Invalid Media List",
    "Invalid Media Mode",
    "Invalid Message ID",
    nullptr,
    "Invalid Param",
    "Invalid Park ID",
    "Invalid Park Mode",
    "Invalid Pointer",
    "Invalid Priv Select",
    "Invalid Rate",
    "Invalid Request Mode",
    "Invalid Terminal ID",
    "Invalid Terminal Mode",
    "Invalid Time Out",
    "Invalid Tone",
    "Invalid Tone List",
    "Invalid Tone Mode",
    "Invalid Transfer Mode",
    "Line Mapper Failed",
    "No Conference",
    "No Device",
    "No Driver",
    "No Memory",
    "No Request",
    "Not Owner",
    "Not Registered",
    "Operation Failed",
    "Operation Unavailable",
    "Rate Unavailable",
    "Resource Unavailable",
    "Request Overrun",
    "Structure Too Small",
    "Target Not found",
    "Target Self",
    "Uninitialized",
    "UserUser Info Too Big",
    "Re-init",
    "Address Blocked",
    "Billing Rejected",
    "Invalid Feature",
    "No Multiple Instance",
};

} // namespace

TEST_F(CvbTAPILineTest, KnowsTheTextsOfTheErrors)
{
    const auto text = [this](quint32 code) { return line->ErrorString(qint32(code)); };
    const QString unknown = QStringLiteral("Unknown Error");
    quint32 code = 0x80000001;
    for (const char *expected : errorTexts)
        EXPECT_EQ(text(code++), expected ? QString::fromLatin1(expected) : unknown) << code - 1;
    EXPECT_EQ(code, 0x80000057u);
    for (const quint32 other : {0u, 1u, 0x80000000u, 0x80000057u, 0xFFFFFFFFu})
        EXPECT_EQ(text(other), unknown) << other;
}
