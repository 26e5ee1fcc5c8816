#include "TestIsolation.h"

#include "FatalErrors.h"
#include "Forms.h"
#include "QtMessages.h"

#include <QApplication>
#include <QClipboard>

void TestIsolation::install()
{
    testing::UnitTest::GetInstance()->listeners().Append(new TestIsolation); // which owns it
}

void TestIsolation::OnTestEnd(const testing::TestInfo &)
{
    while (!Forms::loaded().isEmpty())
        delete Forms::loaded().constFirst();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QGuiApplication::clipboard()->clear();
    QApplication::setPalette({});
    QtMessages::expectNone();
    FatalErrors::refuseAll();
}
