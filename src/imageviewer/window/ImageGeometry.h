#pragma once

#include "ImagePlace.h"
#include "Surroundings.h"

class Form;
class PictureBox;
class QAction;

/// The display rectangle of the image window and the window around it: which of them follows the other, and
/// where the rectangle is. No step of it changes the picture.
class ImageGeometry
{
public:
    /// The items of the menu have the marks of the two modes.
    ImageGeometry(Form &window, PictureBox &image, QAction &mnuViewPan, QAction &mnuSizeFittoWindow);

    bool PanMode() const { return m_panMode; }
    void setPanMode(bool on) { m_panMode = on; }
    /// Ends pan mode and takes its mark away.
    void panOff();
    void uncheckPan();

    /// The rectangle follows the window.
    bool FitWindowMode() const { return m_fitWindowMode; }
    void setFitWindowMode(bool on) { m_fitWindowMode = on; }
    void uncheckFitWindow();

    /// Twips taken from the top by bars: 0, 300, 600, or -300.
    int BarOffset() const { return m_barOffset; }
    void setBarOffset(int twips) { m_barOffset = twips; }

    PictureBox &image() const { return m_image; }
    ImageSize size() const;
    /// Throws RuntimeError 6 for an infinite side.
    void setSize(ImageSize size);
    ImagePlace place() const;
    void setPlace(ImagePlace place);

    Surroundings around() const;
    bool isMaximized() const;
    void maximize();
    /// Makes a window in normal state higher.
    void growWindow(int twips);

    /// Puts the rectangle into the middle; not in either mode.
    void CenterImage();
    /// Makes the window as large as the rectangle needs it, or maximises it.
    void FitWindowtoImage();
    /// What happens when the window's size changes. A window that is not in normal state keeps its size.
    void Resize();

private:
    bool isNormal() const;
    void setWindow(ImageSize size);

    Form &m_window;
    PictureBox &m_image;
    QAction &m_panMark;
    QAction &m_fitMark;
    bool m_panMode = false;
    bool m_fitWindowMode = false;
    int m_barOffset = 0;
};
