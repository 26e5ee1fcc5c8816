#include "CommandLine.h"
#include "DefaultErrorBox.h"
#include "EntryRoutine.h"
#include "EventGate.h"
#include "Look.h"
#include "Paths.h"
#include "SuiteApplication.h"
#include "Version.h"
#include "WindowTable.h"

int main(int argc, char **argv)
{
    SuiteApplication application(argc, argv); // takes Qt's own arguments away
    CommandLine::take(argc, argv);
    QCoreApplication::setApplicationName(Paths::applicationTitle);
    QCoreApplication::setApplicationVersion(Version::text());
    QGuiApplication::setApplicationDisplayName({});
    QGuiApplication::setDesktopFileName(QStringLiteral("quill-office-tools"));
    QGuiApplication::setQuitOnLastWindowClosed(
        false); // the process lives as long as the frame, not the splash
    EventGate::setBox(showDefaultErrorBox);
    Look::apply();
    WindowTable::registerAll();
    EntryRoutine();
    return SuiteApplication::exec();
}
