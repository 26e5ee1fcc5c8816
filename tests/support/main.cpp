#include "QtMessages.h"

#include <QApplication>
#include <gtest/gtest.h>

/// Runs the tests of one program inside a QApplication, offscreen unless a test asked for another platform.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QtMessages::install();
    return RUN_ALL_TESTS();
}
