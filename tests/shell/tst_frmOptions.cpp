#include "Globals.h"
#include "Paths.h"
#include "RunningSuite.h"
#include "Settings.h"
#include "frmOptions.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

QString stored()
{
    return Settings::get(Paths::applicationTitle, QStringLiteral("Options"),
                         QStringLiteral("Show Splash at Startup"), QStringLiteral("none"));
}

struct OptionsTest : testing::Test
{
    RunningSuite suite;

    void open(const char *item, std::function<void(frmOptions &)> act)
    {
        suite.dialogs.expectWindow<frmOptions>(QStringLiteral("frmOptions"), std::move(act));
        suite.choose(item);
    }
    static void click(frmOptions &window, const char *button)
    {
        QTest::mouseClick(&window.member<QPushButton>(QString::fromLatin1(button)), Qt::LeftButton);
    }
    static QCheckBox &box(frmOptions &window)
    {
        return window.member<QCheckBox>(QStringLiteral("chkSplashTime"));
    }
};

} // namespace

TEST_F(OptionsTest, CancelKeepsWhatApplyStored)
{
    showSplash = 1;
    open("mnuToolsOptions", [](frmOptions &window) {
        EXPECT_TRUE(box(window).isChecked());
        box(window).setChecked(false);
        click(window, "cmdApply");
        EXPECT_TRUE(window.isVisible());
        box(window).setChecked(true);
        click(window, "cmdCancel");
    });
    EXPECT_EQ(showSplash, 0);
    EXPECT_EQ(stored(), QStringLiteral("0"));
}

TEST_F(OptionsTest, OkStoresAndCloses)
{
    showSplash = 0;
    open("mnuViewOptions", [](frmOptions &window) {
        EXPECT_FALSE(box(window).isChecked());
        box(window).setChecked(true);
        click(window, "cmdOK");
    });
    EXPECT_EQ(showSplash, 1);
    EXPECT_EQ(stored(), QStringLiteral("1"));
}

TEST_F(OptionsTest, EscapeCancelsAndReturnTakes)
{
    showSplash = 0;
    open("mnuViewOptions", [](frmOptions &window) {
        box(window).setChecked(true);
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    EXPECT_EQ(showSplash, 0);
    open("mnuViewOptions", [](frmOptions &window) {
        box(window).setChecked(true);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_EQ(showSplash, 1);
}

TEST_F(OptionsTest, ReturnOnCancelCancels)
{
    showSplash = 0;
    open("mnuViewOptions", [](frmOptions &window) {
        box(window).setChecked(true);
        window.member<QPushButton>(QStringLiteral("cmdCancel")).setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(showSplash, 0);
}

TEST_F(OptionsTest, AnErrorInTheLoadEndsTheProgram)
{
    showSplash = 7; // no value of a check box
    suite.dialogs.expectBox(
        QStringLiteral("Quill-Office Tools - Error Message"),
        QStringLiteral("An error has occurred: \nCode: 380\nDetail: Invalid property value"));
    suite.fatal.expectEnd(EXIT_FAILURE);
    open("mnuToolsOptions", [](frmOptions &window) { click(window, "cmdCancel"); });
}

TEST_F(OptionsTest, ShowsItsCaptions)
{
    open("mnuToolsOptions", [](frmOptions &window) {
        EXPECT_EQ(window.Caption(), QStringLiteral("Options"));
        EXPECT_EQ(box(window).text(), QStringLiteral("Show Splash Screen at Start Up"));
        EXPECT_EQ(window.member<QLabel>(QStringLiteral("Label4")).text(),
                  QStringLiteral(
                      "Make your choices then click Apply or OK to apply your choices. Selecting OK also "
                      "closes this page. Cancel closes this page without saving your changes."));
        EXPECT_EQ(window.member<QGroupBox>(QStringLiteral("fraSample3")).title(), QStringLiteral("Sample 3"));
        EXPECT_FALSE(window.member<QWidget>(QStringLiteral("picOptions")).isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(OptionsTest, EveryFrameHasANameAndIsSpoken)
{
    open("mnuToolsOptions", [](frmOptions &window) {
        QStringList names;
        for (const QGroupBox *frame : window.findChildren<QGroupBox *>()) {
            EXPECT_EQ(frame->accessibleName(), frame->title());
            names << frame->objectName();
        }
        names.sort();
        EXPECT_EQ(names.join(u' '),
                  QStringLiteral("fraDefaults fraHelp fraSample2 fraSample3 fraSample4 fraStartUp"));
        click(window, "cmdCancel");
    });
}

TEST_F(OptionsTest, AStoreThatCannotBeWrittenIsAnUntrappedError)
{
    suite.fatal.expect(76);
    open("mnuToolsOptions", [this](frmOptions &window) {
        qputenv("XDG_CONFIG_HOME",
                suite.home.file(QStringLiteral(".config/QuillOfficeToolsv2.ini/x")).toUtf8());
        click(window, "cmdApply");
        click(window, "cmdCancel");
    });
}
