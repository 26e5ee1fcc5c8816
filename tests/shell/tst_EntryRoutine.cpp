#include "EntryRoutine.h"
#include "Forms.h"
#include "Globals.h"
#include "Paths.h"
#include "RunningSuite.h"
#include "Settings.h"
#include "frmSplash.h"

#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace {

QString setting(const char *section, const char *key)
{
    return Settings::get(Paths::applicationTitle, QString::fromLatin1(section), QString::fromLatin1(key),
                         QStringLiteral("none"));
}

void store(const char *section, const char *key, const char *value)
{
    Settings::save(Paths::applicationTitle, QString::fromLatin1(section), QString::fromLatin1(key),
                   QString::fromLatin1(value));
}

/// The entry routine with settings of the test's own.
struct EntryTest : testing::Test
{
    EntryTest() { suite = std::make_unique<RunningSuite>(); }

    void restart()
    {
        delete mainFrame;
        EntryRoutine();
    }
    void endAndRestart()
    {
        suite->fatal.expectEnd(EXIT_SUCCESS);
        suite->choose("mnuFileExit");
        restart();
    }
    void splash(const char *value) { store("Options", "Show Splash at Startup", value); }

    std::unique_ptr<RunningSuite> suite;
};

} // namespace

class SplashSkipped : public EntryTest, public testing::WithParamInterface<const char *>
{};

TEST_P(SplashSkipped, OnlyTheValueOneShowsIt)
{
    splash(GetParam());
    restart(); // an unexpected modal window fails the test
    ASSERT_NE(mainFrame, nullptr);
    EXPECT_TRUE(suite->frame().isVisible());
    EXPECT_TRUE(suite->dialogs.seen().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Values, SplashSkipped, testing::Values("0", "2", "-1", "garbage", "99999", ""));

TEST_F(EntryTest, AValueThatIsNoNumberLeavesTheSplashSettingAsItWas)
{
    showSplash = 1;
    splash("garbage");
    suite->dialogs.expectWindow<frmSplash>(
        QStringLiteral("frmSplash"), [&](frmSplash &window) { QTest::keyClick(&window, Qt::Key_Space); });
    restart();
    EXPECT_EQ(showSplash, 1);
}

TEST_F(EntryTest, AKeyEndsTheSplashAndTheFrameLoads)
{
    splash("1");
    QString version;
    suite->dialogs.expectWindow<frmSplash>(QStringLiteral("frmSplash"), [&](frmSplash &window) {
        EXPECT_TRUE(Forms::named(QStringLiteral("frmDocument")).isEmpty());
        const auto &label = window.member<QLabel>(QStringLiteral("lblVersion"));
        version = label.text();
        EXPECT_EQ(label.accessibleName(), QStringLiteral("Version"));
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_TRUE(label.isVisible());
        EXPECT_EQ(window.member<QTimer>(QStringLiteral("Timer1")).interval(), 3500);
        QTest::keyClick(&window, Qt::Key_Space);
    });
    restart();
    EXPECT_EQ(version, QStringLiteral("Version : 2.0.1"));
    EXPECT_EQ(suite->active().Caption(), QStringLiteral("Document 1"));
}

TEST_F(EntryTest, AClickEndsTheSplash)
{
    splash("1");
    suite->dialogs.expectWindow<frmSplash>(
        QStringLiteral("frmSplash"), [&](frmSplash &window) { QTest::mouseClick(&window, Qt::LeftButton); });
    restart();
    EXPECT_TRUE(suite->frame().isVisible());
}

TEST_F(EntryTest, TheTimerEndsTheSplash)
{
    splash("1");
    suite->dialogs.expectWindow<frmSplash>(QStringLiteral("frmSplash"), [&](frmSplash &window) {
        const QPointer<frmSplash> splash(&window);
        window.member<QTimer>(QStringLiteral("Timer1")).start(1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !splash || !splash->isVisible(); }));
    });
    restart();
    EXPECT_TRUE(suite->frame().isVisible());
}

TEST_F(EntryTest, PositionAndSizeSurviveARestart)
{
    suite->frame().move(45, 60);
    suite->frame().resize(700, 500);
    suite->fatal.expectEnd(EXIT_SUCCESS);
    suite->choose("mnuFileExit");
    EXPECT_EQ(setting("Settings", "MainLeft"), QStringLiteral("675"));
    EXPECT_EQ(setting("Settings", "MainHeight"), QStringLiteral("7500"));
    restart();
    EXPECT_EQ(suite->frame().pos(), QPoint(45, 60));
    EXPECT_EQ(suite->frame().size(), QSize(700, 500));
}

TEST_F(EntryTest, APositionThatCannotBeStoredEndsInTheDefaultErrorBox)
{
    const QString file = Settings::fileName(Paths::applicationTitle);
    QFile::remove(file);
    ASSERT_TRUE(QDir().mkpath(file));
    suite->fatal.expect(ErrorNumber::PathFileAccessError);
    suite->choose("mnuFileExit");
    EXPECT_EQ(suite->fatal.seen().size(), 1);
    ASSERT_TRUE(QDir(file).removeRecursively());
}

TEST_F(EntryTest, AMinimisedFrameStoresNothing)
{
    store("Settings", "MainLeft", "1500");
    store("Settings", "MainWidth", "12000");
    suite->frame().showMinimized();
    suite->fatal.expectEnd(EXIT_SUCCESS);
    suite->frame().close();
    EXPECT_EQ(setting("Settings", "MainLeft"), QStringLiteral("1500"));
    EXPECT_EQ(setting("Settings", "MainWidth"), QStringLiteral("12000"));
    EXPECT_EQ(setting("Settings", "MainTop"), QStringLiteral("none"));
}

TEST_F(EntryTest, APositionThatIsNoNumberEndsInTheFatalReport)
{
    store("Settings", "MainTop", "top");
    suite->dialogs
        .expectBox(QStringLiteral("Quill-Office Tools - Error Message"),
                   QStringLiteral("An error has occurred: \nCode: 13\nDetail: Type mismatch"))
        .icon(QMessageBox::Critical);
    suite->fatal.expectEnd(EXIT_FAILURE);
    restart();
    EXPECT_FALSE(suite->frame().isVisible());
    EXPECT_EQ(lastAnswer, QStringLiteral("1"));
}

TEST_F(EntryTest, APositionBeyondEveryScreenComesBack)
{
    store("Settings", "MainLeft", "3000000");
    store("Settings", "MainTop", "-3E+38");
    restart();
    EXPECT_TRUE(suite->frame().screen()->availableGeometry().intersects(suite->frame().geometry()));
}

TEST_F(EntryTest, AFrameWhoseTitleBarIsBeyondEveryScreenComesBack)
{
    store("Settings", "MainTop", "-7500");
    store("Settings", "MainHeight", "9000"); // most of it is seen
    restart();
    EXPECT_EQ(suite->frame().y(), suite->frame().screen()->availableGeometry().top());
    store("Settings", "MainLeft", "-14000"); // a strip of 50 pixels is seen
    store("Settings", "MainTop", "750");
    store("Settings", "MainWidth", "14750");
    restart();
    EXPECT_EQ(suite->frame().x(), suite->frame().screen()->availableGeometry().left());
}

TEST_F(EntryTest, ASizeBeyondTheScreenIsCutAndStaysStored)
{
    store("Settings", "MainLeft", "1500");
    store("Settings", "MainTop", "750");
    store("Settings", "MainWidth", "90000");
    store("Settings", "MainHeight", "7500");
    restart();
    const QRect screen = suite->frame().screen()->availableGeometry();
    EXPECT_EQ(suite->frame().x(), screen.left());
    EXPECT_EQ(suite->frame().width(), screen.width());
    EXPECT_EQ(suite->frame().y(), 50);
    EXPECT_EQ(suite->frame().height(), 500);
    endAndRestart();
    EXPECT_EQ(setting("Settings", "MainLeft"), QStringLiteral("1500"));
    EXPECT_EQ(setting("Settings", "MainWidth"), QStringLiteral("90000"));
    suite->frame().resize(600, 400);
    endAndRestart();
    EXPECT_EQ(setting("Settings", "MainWidth"), QStringLiteral("9000"));
    EXPECT_EQ(setting("Settings", "MainHeight"), QStringLiteral("6000"));
}

TEST_F(EntryTest, ASizeOfTheWholeScreenLeavesSpaceForTheTitleBar)
{
    store("Settings", "MainHeight", "90000");
    restart();
    const QRect screen = suite->frame().screen()->availableGeometry();
    EXPECT_EQ(suite->frame().y(), screen.top());
    EXPECT_LT(suite->frame().height(), screen.height());
    EXPECT_GT(suite->frame().height(), screen.height() - 50);
}
