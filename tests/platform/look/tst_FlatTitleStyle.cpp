#include "Colors.h"
#include "FlatTitleStyle.h"
#include "HostileNames.h"
#include "Palettes.h"
#include "ShownText.h"

#include <QDialogButtonBox>
#include <QIconEngine>
#include <QImage>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionTitleBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr QSize barSize(200, 24);

QImage paint(QStyle::State state, QStyle::SubControls active = QStyle::SC_None, const QIcon &icon = {})
{
    const FlatTitleStyle style;
    QStyleOptionTitleBar bar;
    bar.rect = QRect(QPoint(), barSize);
    bar.palette = Palettes::light();
    bar.subControls = QStyle::SC_All;
    bar.titleBarFlags = Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                        Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
    bar.titleBarState = int(state);
    bar.activeSubControls = active;
    bar.text = QStringLiteral("Document 1");
    bar.icon = icon;
    QImage image(barSize, QImage::Format_RGB32);
    QPainter painter(&image);
    style.drawComplexControl(QStyle::CC_TitleBar, &bar, &painter, nullptr);
    return image;
}

/// Records where it is drawn.
class RecordedIcon : public QIconEngine
{
public:
    explicit RecordedIcon(QRect &place)
        : m_place(place)
    {}

    void paint(QPainter *, const QRect &rect, QIcon::Mode, QIcon::State) override { m_place = rect; }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override { return QPixmap(size); }
    QIconEngine *clone() const override { return new RecordedIcon(*this); }

private:
    QRect &m_place;
};

/// The title bar of a child window that is too narrow for \a title.
QImage barWithTitle(const QString &title)
{
    FlatTitleStyle style;
    QMdiArea area;
    area.setStyle(&style);
    auto *window = new QMdiSubWindow;
    window->setStyle(&style);
    window->setWidget(new QWidget);
    area.addSubWindow(window);
    window->setWindowTitle(title);
    window->resize(300, 100);
    area.resize(400, 200);
    area.show();
    return window->grab(QRect(0, 0, window->width(), 20)).toImage();
}

/// The highest contrast of a group box's frame with its window.
double contrastOfGroupFrame(const QPalette &palette)
{
    const FlatTitleStyle style;
    QStyleOptionFrame option;
    option.rect = QRect(2, 2, 60, 30);
    option.palette = palette;
    QImage image(64, 34, QImage::Format_RGB32);
    const QColor window = palette.color(QPalette::Window);
    image.fill(window);
    {
        QPainter painter(&image);
        style.drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter, nullptr);
    }
    double most = 1;
    for (int x = 0; x < image.width(); ++x)
        most = std::max(most, contrast(image.pixelColor(x, image.height() / 2), window));
    return most;
}

/// The highest contrast of a field's border with its window.
double contrastOfFieldBorder(const QPalette &palette)
{
    const FlatTitleStyle style;
    QStyleOptionFrame option;
    option.rect = QRect(2, 2, 60, 30);
    option.palette = palette;
    QImage image(64, 34, QImage::Format_RGB32);
    const QColor window = palette.color(QPalette::Window);
    image.fill(window);
    {
        QPainter painter(&image);
        style.drawPrimitive(QStyle::PE_FrameLineEdit, &option, &painter, nullptr);
    }
    double most = 1;
    for (int x = 0; x < image.width(); ++x)
        most = std::max(most, contrast(image.pixelColor(x, image.height() / 2), window));
    return most;
}

/// The contrast of an icon in the text's colour with its window.
double contrastOfIcon(QIcon::Mode mode, const QPalette &palette)
{
    const FlatTitleStyle style;
    QPixmap icon(16, 16);
    icon.fill(palette.color(QPalette::Text));
    QStyleOption option;
    option.palette = palette;
    const QColor window = palette.color(QPalette::Window);
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(window);
    {
        QPainter painter(&image);
        painter.drawPixmap(0, 0, style.generatedIconPixmap(mode, icon, &option));
    }
    return contrast(image.pixelColor(8, 8), window);
}

/// The ground of a selected menu entry.
QColor selectedMenuGround(const QPalette &palette)
{
    const FlatTitleStyle style;
    QStyleOptionMenuItem option;
    option.rect = QRect(0, 0, 120, 24);
    option.palette = palette;
    option.menuItemType = QStyleOptionMenuItem::Normal;
    option.state = QStyle::State_Enabled | QStyle::State_Selected;
    QImage image(option.rect.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    style.drawControl(QStyle::CE_MenuItem, &option, &painter, nullptr);
    return image.pixelColor(option.rect.center());
}

/// The highest contrast of anything in an unchecked box or button with its window.
double contrastOf(QStyle::PrimitiveElement element, const QPalette &palette, double pixelRatio)
{
    const FlatTitleStyle style;
    QStyleOptionButton option;
    option.rect = QRect(3, 3, style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, nullptr),
                        style.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, nullptr));
    option.palette = palette;
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    QImage image(QSize(20, 20) * pixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelRatio);
    const QColor window = palette.color(QPalette::Window);
    image.fill(window);
    {
        QPainter painter(&image);
        style.drawPrimitive(element, &option, &painter, nullptr);
    }
    double most = 1;
    for (int x = 0; x < image.width() / 2; ++x)
        most = std::max(most, contrast(image.pixelColor(x, image.height() / 2), window));
    return most;
}

} // namespace

TEST(FlatTitleStyle, TheBarIsFlatInThePalettesColours)
{
    const QImage active = paint(QStyle::State_Active);
    const QColor ground = Palettes::light().color(QPalette::Highlight);
    EXPECT_EQ(active.pixelColor(110, 1), ground);
    EXPECT_EQ(active.pixelColor(110, barSize.height() - 2), ground);
    EXPECT_EQ(paint(QStyle::State_None).pixelColor(110, 1), Palettes::light().color(QPalette::Button));
}

/// Themes have no pictures of the sizes in between.
TEST(FlatTitleStyle, TheIconHasTheSizeOfASmallOne)
{
    QRect place;
    paint(QStyle::State_Active, QStyle::SC_None, QIcon(new RecordedIcon(place)));
    EXPECT_EQ(place.size(), QSize(16, 16));
    EXPECT_EQ(place.center().y(), QRect(QPoint(), barSize).center().y());
    EXPECT_GE(place.left(), 0);
    EXPECT_LT(place.right(), 30);
}

TEST(FlatTitleStyle, ALongTitleShowsItsEnd)
{
    const QString folders = QStringLiteral("/home/somebody/a/folder/with/rather/a/long/name/and/more/");
    const QString name = QStringLiteral("letter.rtf");
    EXPECT_NE(barWithTitle(folders + name), barWithTitle(folders + QStringLiteral("figures.txt")));
    EXPECT_EQ(barWithTitle(folders + name), barWithTitle(QStringLiteral("/mnt") + folders + name));
}

TEST(FlatTitleStyle, ATitleFromOutsideShowsMarksForWhatCannotBeSeen)
{
    const QString hidden = QStringLiteral("invoice\u202Efdp.exe");
    EXPECT_NE(barWithTitle(QStringLiteral("invoicefdp.exe")), barWithTitle(hidden)); // the marks are seen
    for (const HostileName &name : HostileNames::all())
        EXPECT_EQ(barWithTitle(name.text()), barWithTitle(ShownText::line(name.text()))) << name.what;
}

TEST(FlatTitleStyle, GroupFramesAndMenuEntriesAreSeenInLightAndDark)
{
    constexpr double visible = 1.6;
    constexpr double readable = 7;
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        EXPECT_GT(contrastOfGroupFrame(palette), visible);
        // Icons have the colour of the text, selected or not.
        EXPECT_GT(contrast(selectedMenuGround(palette), palette.color(QPalette::Text)), readable);
    }
}

TEST(FlatTitleStyle, FieldsHaveABorderInLightAndDark)
{
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()})
        EXPECT_GT(contrastOfFieldBorder(palette), 2);
}

TEST(FlatTitleStyle, DisabledIconsAreFaintInLightAndDark)
{
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        EXPECT_GT(contrastOfIcon(QIcon::Normal, palette), 7);
        EXPECT_LT(contrastOfIcon(QIcon::Disabled, palette), 4);
        EXPECT_GT(contrastOfIcon(QIcon::Disabled, palette), 1.5);
    }
}

TEST(FlatTitleStyle, TheArrowsOfCrowdedBarsAreSeenInLightAndDark)
{
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        QApplication::setPalette(palette);
        const QIcon arrow =
            FlatTitleStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr);
        const QImage image = arrow.pixmap(16).toImage();
        double greatest = 1;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y).alpha() > 200)
                    greatest =
                        std::max(greatest, contrast(image.pixelColor(x, y), palette.color(QPalette::Window)));
            }
        }
        EXPECT_GT(greatest, 3);
    }
}

TEST(FlatTitleStyle, ASelectedMenuEntryContrastsWithTheOthers)
{
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()})
        EXPECT_GT(contrast(selectedMenuGround(palette), palette.color(QPalette::Base)), 1.3);
}

TEST(FlatTitleStyle, PushButtonsOfBoxesHaveNoIcons)
{
    FlatTitleStyle style;
    QDialogButtonBox box;
    box.setStyle(&style);
    EXPECT_TRUE(box.addButton(QDialogButtonBox::Save)->icon().isNull());
}

TEST(FlatTitleStyle, AButtonUnderTheMouseIsHighlighted)
{
    EXPECT_NE(paint(QStyle::State_Active), paint(QStyle::State_Active, QStyle::SC_TitleBarCloseButton));
}

TEST(FlatTitleStyle, UncheckedBoxesAndButtonsContrastWithTheWindow)
{
    constexpr double visible = 3.0;
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        for (const double pixelRatio : {1, 2}) {
            EXPECT_GT(contrastOf(QStyle::PE_IndicatorRadioButton, palette, pixelRatio), visible);
            EXPECT_GT(contrastOf(QStyle::PE_IndicatorCheckBox, palette, pixelRatio), visible);
        }
    }
}

TEST(FlatTitleStyle, TheListWithTheFocusIsSeenInLightAndDark)
{
    FlatTitleStyle style;
    for (const QPalette &palette : {Palettes::light(), Palettes::dark()}) {
        QWidget window;
        window.setPalette(palette);
        auto *list = new QListWidget(&window);
        auto *other = new QListWidget(&window);
        other->move(0, 150);
        for (QListWidget *each : {list, other}) {
            each->setStyle(&style);
            each->resize(100, 100);
        }
        window.resize(200, 300);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        list->setFocus();
        const QImage image = window.grab().toImage();
        const QColor frame = image.pixelColor(50, 0);
        EXPECT_EQ(frame, palette.color(QPalette::Highlight));
        EXPECT_GT(contrast(frame, image.pixelColor(50, 150)), 1.3);
        other->setFocus();
        EXPECT_NE(window.grab().toImage().pixelColor(50, 0), frame);
    }
}
