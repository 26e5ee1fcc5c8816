#include "Colors.h"
#include "Files.h"
#include "ThemeIcon.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QImage drawing(const char *name, QIcon::Mode mode)
{
    return ThemeIcon::named(QString::fromLatin1(name)).pixmap(22, mode).toImage();
}

/// Of its opaque parts.
double leastContrast(const QImage &image, const QColor &ground)
{
    double least = 21;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).alpha() > 200)
                least = std::min(least, contrast(image.pixelColor(x, y), ground));
        }
    }
    return least;
}

QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x34, 0x39, 0x3F));
    palette.setColor(QPalette::Button, QColor(0x41, 0x47, 0x4E));
    palette.setColor(QPalette::ButtonText, QColor(0xED, 0xEF, 0xF0));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x7F, 0x86, 0x8C));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

TEST(ThemeIcon, ADisabledOneCanStillBeSeen)
{
    QGuiApplication::setPalette(darkPalette());
    const double seen =
        leastContrast(drawing("edit-delete", QIcon::Disabled), darkPalette().color(QPalette::Window));
    EXPECT_GT(seen, 2.5);
    EXPECT_LT(seen, 4); // there is something, but less than enabled
}

TEST(ThemeIcon, ASelectedOneHasTheColorOfTheText)
{
    QGuiApplication::setPalette(darkPalette());
    EXPECT_GT(leastContrast(drawing("folder", QIcon::Selected), Qt::black), 20.5);
    EXPECT_LT(leastContrast(drawing("folder", QIcon::Selected), Qt::white), 1.1); // there is something
}

TEST(ThemeIcon, OneThatIsTooDarkForAButtonIsLighter)
{
    QGuiApplication::setPalette(darkPalette());
    const QColor button = darkPalette().color(QPalette::Button);
    const QImage shown = drawing("edit-delete", QIcon::Normal);
    const QPixmap theme = QIcon::fromTheme(QStringLiteral("edit-delete")).pixmap(22);
    EXPECT_LT(leastContrast(theme.toImage(), button), 2.5);
    EXPECT_GE(leastContrast(shown, button.lighter(145)), 2.9); // as the style draws its top
    EXPECT_GT(shown.pixelColor(10, 6).red(), shown.pixelColor(10, 6).green() + 30); // red as before
}

/// Else a red mark beside a light symbol is hardly seen.
TEST(ThemeIcon, EachColorOfASymbolIsSeenOnAButton)
{
    QGuiApplication::setPalette(darkPalette());
    const QColor top = darkPalette().color(QPalette::Button).lighter(145);
    const QString name = QStringLiteral("network-disconnect");
    const QIcon icon = ThemeIcon::named(name);
    for (const auto &[size, scale] :
         {std::pair(16, 1), std::pair(22, 1), std::pair(22, 2), std::pair(32, 2)}) {
        const QImage theme = QIcon::fromTheme(name).pixmap(QSize(size, size), scale).toImage();
        const QImage shown = icon.pixmap(QSize(size, size), scale).toImage();
        ASSERT_EQ(shown.size(), theme.size());
        EXPECT_LT(leastContrast(theme, top), 2);
        EXPECT_GE(leastContrast(shown, top), 2.9);
        int marks = 0;
        for (int x = 0; x < shown.width(); ++x) {
            for (int y = 0; y < shown.height(); ++y) {
                const QColor before = theme.pixelColor(x, y);
                const QColor color = shown.pixelColor(x, y);
                EXPECT_EQ(color.alpha(), before.alpha());
                if (before.alpha() > 200 && before.red() > before.green() + 100) {
                    ++marks;
                    EXPECT_GT(color.red(), color.green() + 30); // red as before
                } else if (before.alpha() > 200) {
                    EXPECT_EQ(color, before); // was seen
                }
            }
        }
        EXPECT_GT(marks, 0);
    }
    const QImage disabled = icon.pixmap(22, QIcon::Disabled).toImage();
    EXPECT_LT(leastContrast(disabled, darkPalette().color(QPalette::Disabled, QPalette::ButtonText)), 1.1);
    EXPECT_GT(leastContrast(disabled, darkPalette().color(QPalette::Window)), 2.5);
}

TEST(ThemeIcon, OneWithSeveralColorsKeepsThem)
{
    const QTemporaryDir themes;
    const QDir folder(themes.path());
    ASSERT_TRUE(folder.mkpath(QStringLiteral("colored/22")));
    Files::write(folder.filePath(QStringLiteral("colored/index.theme")),
                 "[Icon Theme]\nName=Colored\nDirectories=22\n[22]\nSize=22\nType=Fixed\n");
    QImage image(22, 22, QImage::Format_ARGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(0, 0, 11, 22, Qt::blue);
    ASSERT_TRUE(image.save(folder.filePath(QStringLiteral("colored/22/flag.png"))));
    QIcon::setThemeSearchPaths(QStringList(themes.path()) << QIcon::themeSearchPaths());
    QIcon::setThemeName(QStringLiteral("colored"));
    EXPECT_EQ(drawing("flag", QIcon::Normal).pixel(5, 10), QColor(Qt::blue).rgb());
    for (const QIcon::Mode mode : {QIcon::Disabled, QIcon::Selected}) {
        const QImage drawn = drawing("flag", mode);
        ASSERT_EQ(drawn.width(), 22);
        EXPECT_NE(drawn.pixel(5, 10), drawn.pixel(16, 10)) << mode;
    }
}

TEST(ThemeIcon, AnEnabledOneIsAsTheThemeHasIt)
{
    QGuiApplication::setPalette(Qt::white);
    EXPECT_FALSE(drawing("edit-delete", QIcon::Normal).isNull());
    EXPECT_EQ(drawing("edit-delete", QIcon::Normal),
              QIcon::fromTheme(QStringLiteral("edit-delete")).pixmap(22).toImage());
    EXPECT_TRUE(ThemeIcon::named(QStringLiteral("no such icon")).isNull());
}

TEST(ThemeIcon, ItHasThePixelsOfTheScreen)
{
    const QPixmap picture =
        ThemeIcon::named(QStringLiteral("edit-delete")).pixmap(QSize(22, 22), 2, QIcon::Disabled);
    EXPECT_EQ(picture.size(), QSize(44, 44));
    EXPECT_EQ(picture.devicePixelRatio(), 2);
}
