#include "TestIsolation.h"

#include "FatalErrors.h"
#include "Forms.h"
#include "QtMessages.h"

#include <QApplication>
#include <QClipboard>
#include <QIcon>

TestIsolation::TestIsolation()
    : m_iconTheme(QIcon::themeName())
    , m_fallbackIconTheme(QIcon::fallbackThemeName())
    , m_iconThemePaths(QIcon::themeSearchPaths())
{}

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
    restoreIconTheme();
    QtMessages::expectNone();
    FatalErrors::refuseAll();
}

void TestIsolation::restoreIconTheme() const
{
    if (QIcon::themeSearchPaths() != m_iconThemePaths)
        QIcon::setThemeSearchPaths(m_iconThemePaths);
    if (QIcon::themeName() != m_iconTheme)
        QIcon::setThemeName(m_iconTheme);
    if (QIcon::fallbackThemeName() != m_fallbackIconTheme)
        QIcon::setFallbackThemeName(m_fallbackIconTheme);
}
