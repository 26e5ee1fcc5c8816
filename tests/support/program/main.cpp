#include "FatalErrors.h"
#include "QtMessages.h"
#include "TestFile.h"
#include "TestIsolation.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

constexpr int skippedCode = 77; // ctest lists the file as skipped

} // namespace

/// Runs the tests of one program inside a QApplication, offscreen unless a test asked for another platform.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nonexistent/cups.sock"); // no test prints on the desktop's printers
    ::testing::InitGoogleTest(&argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // so that a test can type into a file dialog
    QApplication application(argc, argv);
    QtMessages::install();
    FatalErrors::refuseAll();
    TestIsolation::install();
    if (!TestFile::select(QCoreApplication::arguments())) {
        std::fputs("the file has no test\n", stderr);
        return EXIT_FAILURE;
    }
    const int result = RUN_ALL_TESTS();
    const bool isSkipped = testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    return result == EXIT_SUCCESS && isSkipped ? skippedCode : result;
}
