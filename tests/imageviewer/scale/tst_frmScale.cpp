#include "ImageWindow.h"
#include "PrintQt.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace {

struct ScaleTest : testing::Test
{
    ImageWindow window;
    frmScale *scale = nullptr;

    ScaleTest()
    {
        window.open();
        window.openPicture(400, 300); // 6000 by 4500 twips
    }

    /// Opens the dialog, runs \a act in it, and has it closed by Cancel where it is still open.
    template<class Act>
    void inDialog(Act act)
    {
        window.frame.dialogs.expectWindow<frmScale>(QStringLiteral("frmScale"), [&](frmScale &shown) {
            scale = &shown;
            act();
            if (shown.isLoaded())
                button("cmdCancel").click();
        });
        window.choose("mnuSizeScale");
    }
    QString text(const char *name) { return scale->member<QLabel>(QString::fromLatin1(name)).text(); }
    QPushButton &button(const char *name) { return scale->member<QPushButton>(QString::fromLatin1(name)); }
    QLineEdit &width() { return scale->member<QLineEdit>(QStringLiteral("txtWidth")); }
    QLineEdit &height() { return scale->member<QLineEdit>(QStringLiteral("txtHeight")); }
    QString boxes() { return width().text() + u' ' + height().text(); }
    QCheckBox &maintain() { return scale->member<QCheckBox>(QStringLiteral("chkMaintain")); }
    QComboBox &unit() { return scale->member<QComboBox>(QStringLiteral("cboType")); }
    static void type(QLineEdit &box, const QString &text)
    {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
};

} // namespace

TEST_F(ScaleTest, BeginsWithTheRectangleInPixels)
{
    inDialog([&] {
        EXPECT_EQ(scale->Caption(), QStringLiteral("Scale Image"));
        EXPECT_EQ(text("lblSize"), QStringLiteral("Original Size: 400 × 300 pixels"));
        EXPECT_EQ(text("lblRes"), QStringLiteral("Resolution: 96 × 96 pixels per inch"));
        EXPECT_EQ(text("Label1"), QStringLiteral("Original Size"));
        EXPECT_EQ(text("Label2"), QStringLiteral("Change To.."));
        EXPECT_EQ(text("lblWidth"), QStringLiteral("Width:"));
        EXPECT_EQ(text("lblHeight"), QStringLiteral("Height:"));
        EXPECT_EQ(maintain().text(), QStringLiteral("Preserve Aspect Ratio"));
        EXPECT_EQ(boxes(), QStringLiteral("400 300"));
        EXPECT_FALSE(maintain().isChecked());
    });
}

TEST_F(ScaleTest, TheOriginalSizeIsTheRectanglesNow)
{
    window.choose("mnuSizeDoubleWidth");
    inDialog([&] { EXPECT_EQ(text("lblSize"), QStringLiteral("Original Size: 800 × 300 pixels")); });
}

TEST_F(ScaleTest, AnotherUnitShowsTheRectangleAgain)
{
    inDialog([&] {
        type(width(), QStringLiteral("77"));
        const std::pair<const char *, const char *> units[] = {
            {"inches", "4.166667 3.125"}, {"cm", "10.58201 7.936508"}, {"mm", "105.8201 79.36508"},
            {"points", "300 225"},        {"pixels", "400 300"},
        };
        for (const auto &[name, shown] : units) {
            unit().setCurrentText(QString::fromLatin1(name));
            EXPECT_EQ(boxes(), QString::fromLatin1(shown)) << name;
        }
        EXPECT_EQ(unit().count(), 5);
    });
}

TEST_F(ScaleTest, OnlyDigitsAndPointsAreTyped)
{
    inDialog([&] {
        type(width(), QStringLiteral("1a2-,3 .5e"));
        EXPECT_EQ(width().text(), QStringLiteral("123.5"));
        QTest::keyClick(&width(), Qt::Key_Backspace);
        QTest::keyClick(&width(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(width().text(), QStringLiteral("123."));
    });
}

TEST_F(ScaleTest, AppliesTheSizeInTheUnit)
{
    window.choose("mnuViewPan");
    inDialog([&] {
        unit().setCurrentText(QStringLiteral("inches"));
        type(width(), QStringLiteral("3.5"));
        type(height(), QStringLiteral("2"));
        button("cmdApply").click();
        EXPECT_EQ(window.size(), (ImageSize{5040, 2880}));
        EXPECT_TRUE(scale->isLoaded());
    });
    EXPECT_EQ(window.size(), (ImageSize{5040, 2880})); // the cancel takes nothing back
    EXPECT_TRUE(window.picture().Stretch());
    EXPECT_EQ(window.window(), (ImageSize{5160, 4050})); // not lower than it may be
    EXPECT_FALSE(window.isChecked("mnuViewPan"));
    EXPECT_TRUE(window.form().Geometry().PanMode());
}

TEST_F(ScaleTest, OkAppliesAndCloses)
{
    inDialog([&] {
        type(width(), QStringLiteral("100"));
        QTest::keyClick(&width(), Qt::Key_Return);
        EXPECT_FALSE(scale->isLoaded());
    });
    EXPECT_EQ(window.size(), (ImageSize{1500, 4500}));
}

TEST_F(ScaleTest, EscapeChangesNothing)
{
    inDialog([&] {
        type(width(), QStringLiteral("100"));
        QTest::keyClick(&width(), Qt::Key_Escape);
        EXPECT_FALSE(scale->isLoaded());
    });
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
}

TEST_F(ScaleTest, KeepsTheRatio)
{
    inDialog([&] {
        maintain().click();
        type(width(), QStringLiteral("200"));
        EXPECT_EQ(boxes(), QStringLiteral("200 150"));
        type(height(), QStringLiteral("33"));
        EXPECT_EQ(boxes(), QStringLiteral("44 33"));
        maintain().click();
        type(height(), QStringLiteral("99"));
        EXPECT_EQ(boxes(), QStringLiteral("44 99"));
        maintain().click(); // fills the height from the width
        EXPECT_EQ(boxes(), QStringLiteral("44 33"));
    });
}

TEST_F(ScaleTest, TheRatioIsTheRectanglesNow)
{
    inDialog([&] {
        type(width(), QStringLiteral("100"));
        button("cmdApply").click();
        maintain().click();
        type(width(), QStringLiteral("7"));
        EXPECT_EQ(boxes(), QStringLiteral("7 21"));
    });
}

TEST_F(ScaleTest, AFilledBoxDoesNotComeBack)
{
    window.openPicture(300, 100);
    inDialog([&] {
        maintain().click();
        type(width(), QStringLiteral("100"));
        EXPECT_EQ(boxes(), QStringLiteral("100 33.3333333333333"));
    });
}

TEST_F(ScaleTest, TextThatIsNoNumberEndsTheDialogInSilence)
{
    inDialog([&] {
        maintain().click();
        type(width(), QStringLiteral("."));
        EXPECT_FALSE(scale->isLoaded());
    });
    inDialog([&] {
        maintain().click();
        width().clear();
        EXPECT_FALSE(scale->isLoaded());
    });
    inDialog([&] {
        type(width(), QStringLiteral("1.2.3"));
        button("cmdOK").click();
        EXPECT_FALSE(scale->isLoaded());
    });
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
}

TEST_F(ScaleTest, AnEmptyBoxIsNotFilledFromTheOther)
{
    inDialog([&] {
        height().clear();
        maintain().click();
        type(width(), QStringLiteral("5"));
        EXPECT_EQ(boxes(), QStringLiteral("5 "));
    });
}

TEST_F(ScaleTest, OtherErrorsAreReported)
{
    window.frame.dialogs.expectWindow<frmScale>(QStringLiteral("frmScale"), [&](frmScale &shown) {
        scale = &shown;
        width().setText(QString(60, u'9'));
        button("cmdOK").click();
    });
    window.frame.dialogs.expectBox(QStringLiteral("System Error"), QStringLiteral("Error 6: Overflow"));
    window.choose("mnuSizeScale");
    EXPECT_EQ(window.size(), (ImageSize{6000, 4500}));
}

TEST_F(ScaleTest, ARectangleWithoutHeightHasNoRatio)
{
    window.picture().setHeight(0);
    window.frame.dialogs.expectWindow<frmScale>(QStringLiteral("frmScale"), [&](frmScale &shown) {
        scale = &shown;
        maintain().setChecked(true);
        type(height(), QStringLiteral("5"));
        EXPECT_FALSE(shown.isLoaded());
    });
    window.frame.dialogs.expectBox(QStringLiteral("System Error"),
                                   QStringLiteral("Error 11: Division by zero"));
    window.choose("mnuSizeScale");
}
