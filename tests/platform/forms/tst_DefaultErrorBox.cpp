#include "DefaultErrorBox.h"
#include "DialogDriver.h"
#include "EventGate.h"
#include "FatalErrors.h"
#include "PrintQt.h"
#include "RuntimeError.h"

#include <QSignalSpy>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

[[noreturn]] void failStep()
{
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

/// The real box, removed again after the test.
struct DefaultErrorBoxTest : testing::Test
{
    void SetUp() override
    {
        EventGate::setBox(showDefaultErrorBox);
        EventGate::setEnd([this](int code) { ended = code; });
    }
    void TearDown() override { FatalErrors::refuseAll(); }
    int ended = 0;
};

} // namespace

TEST_F(DefaultErrorBoxTest, IsCriticalAndNamesNumberAndText)
{
    DialogDriver dialogs;
    dialogs
        .expectBox(QStringLiteral("QuillOfficeToolsv2"),
                   QStringLiteral("Run-time error '13':\n\nType mismatch"))
        .icon(QMessageBox::Critical)
        .buttons(QMessageBox::Ok);
    run(failStep);
    EXPECT_EQ(ended, EXIT_FAILURE);
}

TEST_F(DefaultErrorBoxTest, StopsEveryOtherHandler)
{
    int ticks = 0;
    QTimer timer;
    on(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(1);
    DialogDriver dialogs;
    dialogs.expectWindow<QMessageBox>(QStringLiteral("MsgBox"), [&](QMessageBox &box) {
        QSignalSpy spy(&timer, &QTimer::timeout);
        EXPECT_TRUE(spy.wait());
        EXPECT_EQ(ticks, 0);
        box.accept();
    });
    run(failStep);
}
