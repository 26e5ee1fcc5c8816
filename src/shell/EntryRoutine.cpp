#include "EntryRoutine.h"

#include "ErrorReports.h"
#include "Forms.h"
#include "Globals.h"
#include "Numbers.h"
#include "Paths.h"
#include "Settings.h"
#include "frmMain.h"

namespace {

void readSettings()
{
    freshDocument = false;
    ignoreErrors([] {
        showSplash =
            Numbers::toInteger(Settings::get(Paths::applicationTitle, QStringLiteral("Options"),
                                             QStringLiteral("Show Splash at Startup"), QStringLiteral("1")));
    });
}

} // namespace

void EntryRoutine()
{
    readSettings();
    try {
        if (showSplash == 1)
            Forms::refer(QStringLiteral("frmSplash")).showModal(nullptr);
        auto *frame = new frmMain;
        mainFrame = frame;
        frame->load();
        frame->show();
        frame->openRecovered();
    } catch (...) {
        const RuntimeError error = RuntimeError::current();
        ReportFatalError(error.number(), error.description());
    }
}
