#include "RunningSuite.h"

#include "EntryRoutine.h"
#include "Form.h"
#include "Globals.h"
#include "Paths.h"
#include "RuntimeError.h"
#include "Settings.h"
#include "Toolbar.h"
#include "WindowTable.h"

#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

/// Tools have items with the names of the frame's.
bool isInForm(const QObject &item)
{
    const QObject *parent = &item;
    while (parent && !qobject_cast<const Form *>(parent))
        parent = parent->parent();
    return parent;
}

} // namespace

RunningSuite::RunningSuite()
{
    WindowTable::registerAll();
    Settings::save(Paths::applicationTitle, QStringLiteral("Options"),
                   QStringLiteral("Show Splash at Startup"), QStringLiteral("0"));
    EntryRoutine();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame()));
}

RunningSuite::~RunningSuite()
{
    delete mainFrame();
}

MainFrame *RunningSuite::mainFrame()
{
    return ::mainFrame;
}

RichTextBox &RunningSuite::text() const
{
    return active().member<RichTextBox>(QStringLiteral("rtfTextBox"));
}

QAction &RunningSuite::item(const char *name) const
{
    for (QAction *item : frame().findChildren<QAction *>(QString::fromLatin1(name))) {
        if (!isInForm(*item))
            return *item;
    }
    throw RuntimeError(ErrorNumber::NoSuchMember, {}, QString::fromLatin1(name));
}

void RunningSuite::choose(const char *name) const
{
    item(name).trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void RunningSuite::press(const char *key) const
{
    auto *button = frame().tbToolBar().findChild<QToolButton *>(QString::fromLatin1(key));
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void RunningSuite::type(const QString &words) const
{
    QTest::keyClicks(&text(), words);
}
