#include "LineError.h"
#include "LineFinder.h"
#include "ModemList.h"
#include "PrintQt.h"
#include "ScratchVariable.h"
#include "TelephoneLine.h"

#include <gtest/gtest.h>

// Alone in its file: a process connects to the bus once.
TEST(NoSystemBusTest, AMobileModemIsNotThere)
{
    const ScratchVariable bus("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent");
    LineSettings settings;
    settings.kind = LineSettings::Kind::Mobile;
    settings.label = QStringLiteral("Stick");
    settings.modem = QStringLiteral("m1");
    ModemList modems;
    modems.wait();
    const auto lines = LineFinder::find({settings}, modems);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines.front()->traits().name, QStringLiteral("Stick"));
    EXPECT_EQ(lines.front()->open(), LineError::NoDevice);
}
