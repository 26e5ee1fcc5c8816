#include "TelephoneService.h"

#include "LineDevCaps.h"
#include "LineDialogs.h"
#include "LineError.h"
#include "PrintQt.h"
#include "PrivateSystemBus.h"
#include "ScratchHome.h"
#include "TelephoneSettings.h"

#include <gtest/gtest.h>

namespace {

/// Dialogs in which the user enters what a test says.
struct EnteringDialogs : LineDialogs
{
    QList<LineSettings> entered;
    qsizetype begun = -1;
    QString example;

    qint32 editLines(QWidget *, qsizetype line) override
    {
        begun = line;
        TelephoneSettings settings;
        settings.lines = entered;
        settings.write();
        return LineError::None;
    }
    qint32 editDialingRules(QWidget *, const QString &number) override
    {
        example = number;
        return LineError::OperationFailed;
    }
};

void ignore(const LineMessage &)
{}

LineSettings serialLine(const QString &label)
{
    LineSettings line;
    line.kind = LineSettings::Kind::Serial;
    line.label = label;
    line.port = QStringLiteral("/dev/null");
    return line;
}

struct TelephoneServiceTest : testing::Test
{
    ScratchHome home;
    PrivateSystemBus bus;
    EnteringDialogs dialogs;
    TelephoneService service{dialogs};
    quint32 application = 0;
    quint32 lines = 0;
    quint32 version = 0x30000;

    void initialise(const QList<LineSettings> &entered)
    {
        TelephoneSettings settings;
        settings.lines = entered;
        settings.write();
        ASSERT_EQ(service.lineInitializeEx(application, ignore, QString(), lines, version), 0);
    }

    qint32 negotiate(quint32 device, quint32 low, quint32 high)
    {
        LineExtensionID extension;
        return service.lineNegotiateAPIVersion(application, device, low, high, version, extension);
    }

    QString nameOf(quint32 device)
    {
        LineDevCaps caps;
        caps.dwTotalSize = 2301;
        EXPECT_EQ(service.lineGetDevCaps(application, device, 0x20000, 0, caps), 0);
        return caps.text(caps.dwLineNameSize, caps.dwLineNameOffset).chopped(1);
    }
};

} // namespace

TEST_F(TelephoneServiceTest, OffersItsHighestVersion)
{
    initialise({serialLine(QStringLiteral("one"))});
    EXPECT_EQ(lines, 1u);
    EXPECT_EQ(version, 0x20000u);
    EXPECT_EQ(negotiate(0, 0x10003, 0x30000), 0);
    EXPECT_EQ(version, 0x20000u);
    EXPECT_EQ(negotiate(0, 0x10003, 0x10004), 0);
    EXPECT_EQ(version, 0x10004u);
    EXPECT_EQ(negotiate(0, 0x20001, 0x30000), LineError::IncompatibleVersion);
    EXPECT_EQ(negotiate(1, 0x10003, 0x30000), LineError::BadDevice);
}

TEST_F(TelephoneServiceTest, ALineWhoseDeviceIsMissingKeepsItsPlace)
{
    LineSettings serial = serialLine(QStringLiteral("gone"));
    serial.port = QStringLiteral("/dev/ttyGone");
    LineSettings mobile = serialLine(QStringLiteral("stick"));
    mobile.kind = LineSettings::Kind::Mobile;
    initialise({serial, mobile});
    for (quint32 device = 0; device < 2; ++device) {
        EXPECT_EQ(negotiate(device, 0x10003, 0x30000), 0);
        quint32 line = 0;
        EXPECT_EQ(
            service.lineOpen(application, device, line, 0x20000, 0, 0, 1, LineDevCaps::InteractiveVoice),
            LineError::NoDevice);
    }
    EXPECT_EQ(nameOf(0), QStringLiteral("gone"));
    EXPECT_EQ(nameOf(1), QStringLiteral("stick"));
}

TEST_F(TelephoneServiceTest, HandlesThatNobodyHasAreRefused)
{
    initialise({serialLine(QStringLiteral("one"))});
    quint32 handle = 0;
    LineDevCaps caps;
    QString icon;
    EXPECT_EQ(service.lineGetDevCaps(application + 1, 0, 0x20000, 0, caps), LineError::InvalidApplication);
    EXPECT_EQ(service.lineGetDevCaps(application, 0, 0x20000, 0, caps), LineError::StructureTooSmall);
    EXPECT_EQ(service.lineGetDevCaps(application, 0, 0, 0, caps), LineError::IncompatibleVersion);
    EXPECT_EQ(service.lineOpen(application, 7, handle, 0x20000, 0, 1, 1, 4), LineError::BadDevice);
    EXPECT_EQ(service.lineMakeCall(9, handle, QStringLiteral("1"), 0), LineError::InvalidLine);
    EXPECT_EQ(service.lineDrop(9), LineError::InvalidCall);
    EXPECT_EQ(service.lineDeallocateCall(9), LineError::InvalidCall);
    EXPECT_EQ(service.lineClose(9), LineError::InvalidLine);
    EXPECT_EQ(service.lineShutdown(9), LineError::InvalidApplication);
    EXPECT_EQ(service.lineGetIcon(9, QString(), icon), LineError::BadDevice);
    EXPECT_EQ(service.lineConfigDialog(9, nullptr, QString()), LineError::BadDevice);
    EXPECT_EQ(service.lineTranslateDialog(9, 0, 0, nullptr, QString()), LineError::InvalidApplication);
}

TEST_F(TelephoneServiceTest, TheFirstLineIsEnteredInItsDialog)
{
    initialise({});
    EXPECT_EQ(lines, 0u);
    dialogs.entered = {serialLine(QStringLiteral("new"))};
    EXPECT_EQ(service.lineConfigDialog(0, nullptr, QString()), 0);
    EXPECT_EQ(dialogs.begun, 0);
    EXPECT_EQ(nameOf(0), QStringLiteral("new"));
}

TEST_F(TelephoneServiceTest, WhatIsChangedCountsAtOnce)
{
    initialise({serialLine(QStringLiteral("one")), serialLine(QStringLiteral("two"))});
    dialogs.entered = {serialLine(QStringLiteral("one")), serialLine(QStringLiteral("three"))};
    EXPECT_EQ(service.lineConfigDialog(1, nullptr, QString()), 0);
    EXPECT_EQ(dialogs.begun, 1);
    EXPECT_EQ(nameOf(1), QStringLiteral("three"));
}

TEST_F(TelephoneServiceTest, ShowsTheDialingRulesWithTheNumber)
{
    initialise({});
    EXPECT_EQ(service.lineTranslateDialog(application, 0, 0x20000, nullptr, QStringLiteral("12")),
              LineError::OperationFailed);
    EXPECT_EQ(dialogs.example, QStringLiteral("12"));
}

TEST_F(TelephoneServiceTest, EachLineHasANumberThatStays)
{
    initialise({serialLine(QStringLiteral("one"))});
    LineDevCaps caps;
    caps.dwTotalSize = 2301;
    ASSERT_EQ(service.lineGetDevCaps(application, 0, 0x20000, 0, caps), 0);
    EXPECT_EQ(caps.dwPermanentLineID, 1434280296u);
}

TEST_F(TelephoneServiceTest, KnowsTheIconOfALine)
{
    initialise({serialLine(QStringLiteral("one"))});
    QString icon;
    EXPECT_EQ(service.lineGetIcon(0, QString(), icon), 0);
    EXPECT_EQ(icon, QStringLiteral("modem"));
}
