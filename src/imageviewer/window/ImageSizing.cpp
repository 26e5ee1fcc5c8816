#include "ImageSizing.h"

#include "Ask.h"
#include "EventGate.h"
#include "Form.h"
#include "ImageGeometry.h"
#include "PictureBox.h"
#include "Placing.h"
#include "ReportFileError.h"
#include "SizeSteps.h"
#include "WindowCommands.h"

#include <QAction>

namespace {

// A Letter page, in twips.
constexpr float longSide = 15840;
constexpr float shortSide = 12240;

struct Ratio
{
    const char *item;
    qint16 across;
    qint16 down;
};

constexpr Ratio ratios[] = {
    {"mnuSizeRatio11", 1, 1},   {"mnuSizeRatio43", 4, 3},   {"mnuSizeRatio54", 5, 4},
    {"mnuSizeRatio149", 14, 9}, {"mnuSizeRatio169", 16, 9}, {"mnuSizeRatio1610", 16, 10},
};

struct Command
{
    const char *item;
    void (ImageSizing::*run)();
};

} // namespace

ImageSizing::ImageSizing(ImageGeometry &geometry, std::function<void()> updateLabels)
    : m_geometry(geometry)
    , m_updateLabels(std::move(updateLabels))
{}

void ImageSizing::bind(Form &window)
{
    const Command commands[] = {
        {"mnuSizeZoomIn", &ImageSizing::mnuSizeZoomIn_Click},
        {"mnuSizeZoomOut", &ImageSizing::mnuSizeZoomOut_Click},
        {"mnuSizeActualPixels", &ImageSizing::mnuSizeActualPixels_Click},
        {"mnuSizeFittoScreen", &ImageSizing::mnuSizeFittoScreen_Click},
        {"mnuSizeFitPageL", &ImageSizing::mnuSizeFitPageL_Click},
        {"mnuSizeFitPageP", &ImageSizing::mnuSizeFitPageP_Click},
        {"mnuSizeSplitHeight", &ImageSizing::mnuSizeSplitHeight_Click},
        {"mnuSizeSplitWidth", &ImageSizing::mnuSizeSplitWidth_Click},
        {"mnuSizeDoubleHeight", &ImageSizing::mnuSizeDoubleHeight_Click},
        {"mnuSizeDoubleWidth", &ImageSizing::mnuSizeDoubleWidth_Click},
        {"mnuSizeMakeSquareWidth", &ImageSizing::mnuSizeMakeSquareWidth_Click},
        {"mnuSizeMakeSquareHeight", &ImageSizing::mnuSizeMakeSquareHeight_Click},
        {"mnuSizeMakeSquareAverage", &ImageSizing::MakeSquare},
    };
    for (const Command &command : commands) {
        WindowCommands::bindCommand(window, command.item, [this, run = command.run] {
            reportingFileErrors([&] { (this->*run)(); });
        });
    }
    for (const Ratio &ratio : ratios) {
        WindowCommands::bindCommand(window, ratio.item, [this, ratio] {
            reportingFileErrors([&] { MakeRatio(ratio.across, ratio.down); });
        });
    }
    auto &fit = window.member<QAction>(QStringLiteral("mnuSizeFittoWindow"));
    on(&fit, &QAction::triggered, &window, [this](bool isChecked) { mnuSizeFittoWindow_Click(isChecked); });
}

// ---- Doubling and splitting, which do not end pan mode

void ImageSizing::stretchTo(float width, float height)
{
    m_geometry.setSize({width, height});
    m_geometry.image().setStretch(true);
    m_geometry.CenterImage();
}

void ImageSizing::mnuSizeDoubleHeight_Click()
{
    const ImageSize size = m_geometry.size();
    stretchTo(size.width, size.height + size.height);
}

void ImageSizing::mnuSizeDoubleWidth_Click()
{
    const ImageSize size = m_geometry.size();
    stretchTo(size.width + size.width, size.height);
}

void ImageSizing::mnuSizeSplitHeight_Click()
{
    const ImageSize size = m_geometry.size();
    stretchTo(size.width, size.height / 2);
}

void ImageSizing::mnuSizeSplitWidth_Click()
{
    const ImageSize size = m_geometry.size();
    stretchTo(size.width / 2, size.height);
}

void ImageSizing::mnuSizeZoomIn_Click()
{
    mnuSizeDoubleHeight_Click();
    mnuSizeDoubleWidth_Click();
    if (isLargerThanWindow() && !m_geometry.isMaximized())
        m_geometry.FitWindowtoImage();
}

bool ImageSizing::isLargerThanWindow() const
{
    const ImageSize size = m_geometry.size();
    const ImageSize window = m_geometry.around().window;
    return size.width > window.width || size.height > window.height;
}

void ImageSizing::bringIntoView()
{
    if (!isLargerThanWindow())
        return;
    if (!m_geometry.isMaximized())
        m_geometry.FitWindowtoImage();
    if (isLargerThanWindow())
        m_geometry.setPlace(Placing::clamped(m_geometry.place(), m_geometry.size(), m_geometry.around()));
    else
        m_geometry.CenterImage();
}

void ImageSizing::mnuSizeZoomOut_Click()
{
    mnuSizeSplitHeight_Click();
    mnuSizeSplitWidth_Click();
}

// ---- Sizes that begin with the picture's own

void ImageSizing::takePercent(int row)
{
    m_geometry.image().setStretch(false);
    m_geometry.setSize(SizeSteps::atPercent(m_geometry.size(), row));
    m_geometry.CenterImage();
    m_geometry.image().setStretch(true);
}

void ImageSizing::MakeRatio(qint16 Across, qint16 Down)
{
    m_geometry.panOff();
    m_geometry.image().setStretch(false);
    const ImageSize size = SizeSteps::fromRatio(m_geometry.size(), Across, Down);
    stretchTo(size.width, size.height);
}

void ImageSizing::fitPage(float width, float height)
{
    m_geometry.panOff();
    m_geometry.image().setStretch(false);
    stretchTo(width, height);
}

void ImageSizing::mnuSizeFitPageL_Click()
{
    fitPage(longSide, shortSide);
}

void ImageSizing::mnuSizeFitPageP_Click()
{
    fitPage(shortSide, longSide);
}

void ImageSizing::mnuSizeActualPixels_Click()
{
    m_geometry.setFitWindowMode(false);
    m_geometry.panOff();
    m_geometry.image().setStretch(false);
    m_geometry.setPlace({0, 0});
    m_geometry.Resize();
    m_geometry.CenterImage();
    m_geometry.uncheckFitWindow();
    m_geometry.FitWindowtoImage();
    m_updateLabels();
}

// ---- Squares

bool ImageSizing::isSquare() const
{
    return m_geometry.size().width == m_geometry.size().height;
}

void ImageSizing::sayIsSquare()
{
    Ask(QStringLiteral("The image is already a square."), MsgBoxStyle::Information,
        QStringLiteral("Information"));
}

void ImageSizing::mnuSizeMakeSquareWidth_Click()
{
    if (isSquare())
        return sayIsSquare();
    m_geometry.panOff();
    stretchTo(m_geometry.size().width, m_geometry.size().width);
}

void ImageSizing::mnuSizeMakeSquareHeight_Click()
{
    if (isSquare())
        return sayIsSquare();
    m_geometry.panOff();
    stretchTo(m_geometry.size().height, m_geometry.size().height);
}

void ImageSizing::MakeSquare()
{
    m_geometry.panOff();
    if (isSquare())
        return sayIsSquare();
    const ImageSize size = SizeSteps::squared(m_geometry.size());
    stretchTo(size.width, size.height);
}

// ---- Window and screen

void ImageSizing::mnuSizeFittoWindow_Click(bool isChecked)
{
    m_geometry.panOff();
    m_geometry.setSize(m_geometry.around().window);
    m_geometry.setPlace({0, 0});
    m_geometry.image().setStretch(true);
    m_geometry.setFitWindowMode(isChecked);
}

void ImageSizing::mnuSizeFittoScreen_Click()
{
    m_geometry.panOff();
    m_geometry.setSize(m_geometry.around().screen);
    m_geometry.setPlace({0, 0});
    m_geometry.image().setStretch(true);
    m_geometry.maximize();
}
