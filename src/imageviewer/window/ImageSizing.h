#pragma once

#include <QtGlobal>
#include <functional>

class Form;
class ImageGeometry;

/// The commands of the Size menu and of the list of percentages. Each gives the display rectangle another
/// size; the picture is left alone. What fails is reported by ReportFileError.
class ImageSizing
{
public:
    /// \a updateLabels shows what the size is.
    ImageSizing(ImageGeometry &geometry, std::function<void()> updateLabels);

    /// Binds the items of the menu of \a window, but those that open a window.
    void bind(Form &window);

    /// Throws RuntimeError 6 for a height of more than 32767 twips; the rectangle then has the picture's own
    /// size.
    void MakeRatio(qint16 Across, qint16 Down);
    /// Both sides at their mean. Throws RuntimeError 6 for sides that differ by more than 32767 twips.
    void MakeSquare();

    /// Row \a row of the list of percentages, always of the picture's own size.
    void takePercent(int row);
    /// A rectangle that is larger than the window gets a larger window, and a place where no edge is empty.
    void bringIntoView();

private:
    void mnuSizeZoomIn_Click();
    void mnuSizeZoomOut_Click();
    void mnuSizeActualPixels_Click();
    void mnuSizeFittoScreen_Click();
    void mnuSizeFittoWindow_Click(bool isChecked);
    void mnuSizeFitPageL_Click();
    void mnuSizeFitPageP_Click();
    void mnuSizeSplitHeight_Click();
    void mnuSizeSplitWidth_Click();
    void mnuSizeDoubleHeight_Click();
    void mnuSizeDoubleWidth_Click();
    void mnuSizeMakeSquareWidth_Click();
    void mnuSizeMakeSquareHeight_Click();

    void fitPage(float width, float height);
    void stretchTo(float width, float height);
    bool isSquare() const;
    bool isLargerThanWindow() const;
    static void sayIsSquare();

    ImageGeometry &m_geometry;
    std::function<void()> m_updateLabels;
};
