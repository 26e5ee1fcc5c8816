#include "FontDialog.h"

#include "CommonDialog.h"
#include "DialogDriver.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString missing = QStringLiteral("Calibri Of Nowhere");
const QString installed = QStringLiteral("Liberation Serif");

struct FontDialogTest : testing::Test
{
    DialogDriver dialogs;
    CommonDialog dialog{nullptr};

    FontDialogTest()
    {
        dialog.FontName = missing;
        dialog.FontSize = 10.5;
        dialog.FontBold = true;
        dialog.FontUnderline = true;
    }
    void choose(std::function<void(FontDialog &)> act)
    {
        dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"),
                                         [act = std::move(act)](FontDialog &window) {
                                             act(window);
                                             window.accept();
                                         });
        dialog.ShowFont();
    }
};

template<class Control>
Control &control(FontDialog &window, const char *name)
{
    return *window.findChild<Control *>(QString::fromLatin1(name));
}

void click(QListWidget &list, const QString &row)
{
    const QList<QListWidgetItem *> found = list.findItems(row, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    list.scrollToItem(found.first());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.first()).center());
}

QPushButton &okButton(FontDialog &window)
{
    return *window.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

} // namespace

TEST_F(FontDialogTest, ShowsTheInitialFont)
{
    choose([](FontDialog &window) {
        EXPECT_EQ(control<QListWidget>(window, "lstFont").currentItem()->text(),
                  missing + QStringLiteral(" (not installed)"));
        EXPECT_EQ(control<QListWidget>(window, "lstStyle").currentItem()->text(), QStringLiteral("Bold"));
        EXPECT_EQ(control<QLineEdit>(window, "txtSize").text(), QStringLiteral("10.5"));
        EXPECT_FALSE(control<QCheckBox>(window, "chkStrikeout").isChecked());
        EXPECT_TRUE(control<QCheckBox>(window, "chkUnderline").isChecked());
    });
}

TEST_F(FontDialogTest, WhatIsNotChangedStays)
{
    choose([](FontDialog &) {});
    EXPECT_EQ(dialog.FontName, missing);
    EXPECT_EQ(dialog.FontSize, 10.5);
    EXPECT_TRUE(dialog.FontBold);
    EXPECT_FALSE(dialog.FontItalic);
    EXPECT_TRUE(dialog.FontUnderline);
    EXPECT_FALSE(dialog.FontStrikethru);
}

TEST_F(FontDialogTest, AStyleLeavesFamilyAndSize)
{
    choose([](FontDialog &window) {
        click(control<QListWidget>(window, "lstStyle"), QStringLiteral("Italic"));
        control<QCheckBox>(window, "chkStrikeout").click();
        control<QCheckBox>(window, "chkUnderline").click();
    });
    EXPECT_EQ(dialog.FontName, missing);
    EXPECT_EQ(dialog.FontSize, 10.5);
    EXPECT_FALSE(dialog.FontBold);
    EXPECT_TRUE(dialog.FontItalic);
    EXPECT_TRUE(dialog.FontStrikethru);
    EXPECT_FALSE(dialog.FontUnderline);
}

TEST_F(FontDialogTest, AFamilyLeavesTheSize)
{
    choose([](FontDialog &window) {
        click(control<QListWidget>(window, "lstFont"), installed);
        EXPECT_EQ(control<QLabel>(window, "lblSample").font().family(), installed);
    });
    EXPECT_EQ(dialog.FontName, installed);
    EXPECT_EQ(dialog.FontSize, 10.5);
    EXPECT_TRUE(dialog.FontBold);
}

TEST_F(FontDialogTest, ASizeIsPickedOrTyped)
{
    choose([](FontDialog &window) {
        click(control<QListWidget>(window, "lstSize"), QStringLiteral("14"));
        EXPECT_EQ(control<QLineEdit>(window, "txtSize").text(), QStringLiteral("14"));
    });
    EXPECT_EQ(dialog.FontSize, 14);
    choose([](FontDialog &window) {
        auto &size = control<QLineEdit>(window, "txtSize");
        size.selectAll();
        QTest::keyClicks(&size, QStringLiteral("11.5"));
        EXPECT_TRUE(control<QListWidget>(window, "lstSize").selectedItems().isEmpty());
    });
    EXPECT_EQ(dialog.FontSize, 11.5);
    EXPECT_EQ(dialog.FontName, missing);
}

TEST_F(FontDialogTest, WithoutASizeThereIsNoOK)
{
    choose([](FontDialog &window) {
        auto &size = control<QLineEdit>(window, "txtSize");
        for (const char *text : {"", "0", "5000"}) {
            size.setText(QString::fromLatin1(text));
            EXPECT_FALSE(okButton(window).isEnabled()) << text;
        }
        size.setText(QStringLiteral("8"));
        EXPECT_TRUE(okButton(window).isEnabled());
    });
    EXPECT_EQ(dialog.FontSize, 8);
}

TEST_F(FontDialogTest, AnInstalledFamilyIsListedOnceInTheCallersSpelling)
{
    dialog.FontName = installed.toLower();
    choose([](FontDialog &window) {
        auto &fonts = control<QListWidget>(window, "lstFont");
        EXPECT_EQ(fonts.currentItem()->text(), installed);
        EXPECT_TRUE(fonts.findItems(QStringLiteral("not installed"), Qt::MatchContains).isEmpty());
    });
    EXPECT_EQ(dialog.FontName, installed.toLower());
}

TEST_F(FontDialogTest, FamiliesAreListedOnceWithoutTheirFoundries)
{
    choose([](FontDialog &window) {
        auto &fonts = control<QListWidget>(window, "lstFont");
        EXPECT_TRUE(fonts.findItems(QStringLiteral("["), Qt::MatchContains).isEmpty());
        for (int row = 0; row < fonts.count(); ++row)
            EXPECT_EQ(fonts.findItems(fonts.item(row)->text(), Qt::MatchExactly).size(), 1)
                << fonts.item(row)->text().toStdString();
    });
}

TEST_F(FontDialogTest, WithoutANameTheDesktopsFontIsShown)
{
    dialog.FontName.clear();
    dialog.FontSize = 0;
    choose([](FontDialog &window) {
        EXPECT_TRUE(QFontDatabase::families().contains(
            control<QListWidget>(window, "lstFont").currentItem()->text()));
    });
    EXPECT_GT(dialog.FontSize, 0);
}

TEST_F(FontDialogTest, ReturnInTheListTakesTheFont)
{
    dialogs.expectWindow<FontDialog>(QStringLiteral("FontDialog"), [](FontDialog &window) {
        QTest::keyClick(&control<QListWidget>(window, "lstFont"), Qt::Key_Return);
    });
    dialog.ShowFont();
    EXPECT_EQ(dialog.FontName, missing);
}

TEST_F(FontDialogTest, EveryControlHasANameAndIsSpoken)
{
    choose([](FontDialog &window) {
        for (const auto &[name, spoken] :
             {std::pair("lblFont", "Font"), std::pair("lstFont", "Font"), std::pair("lblStyle", "Font style"),
              std::pair("lstStyle", "Font style"), std::pair("lblSize", "Size"), std::pair("txtSize", "Size"),
              std::pair("lstSize", "Sizes"), std::pair("fraEffects", "Effects"),
              std::pair("chkStrikeout", "Strikeout"), std::pair("chkUnderline", "Underline"),
              std::pair("lblColor", "Colour"), std::pair("cmdColor", "Colour"),
              std::pair("fraSample", "Sample"), std::pair("lblSample", "Sample")}) {
            EXPECT_EQ(control<QWidget>(window, name).accessibleName(), QString::fromLatin1(spoken)) << name;
        }
        EXPECT_NE(window.findChild<QDialogButtonBox *>(QStringLiteral("buttons")), nullptr);
        for (const QLabel *label : window.findChildren<QLabel *>())
            EXPECT_FALSE(label->objectName().isEmpty()) << qUtf8Printable(label->text());
    });
}
