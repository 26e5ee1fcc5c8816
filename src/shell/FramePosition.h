#pragma once

#include <QWidget>
#include <array>

/// Keeps the frame's place and size in the settings from one run to the next. A frame that could
/// not be moved by its title bar is brought onto a screen, and is stored as it was unless the user changes
/// it.
class FramePosition
{
public:
    explicit FramePosition(QWidget &frame);

    /// Throws RuntimeError 13 for a stored position that is no number.
    void restore();
    /// Throws RuntimeError 70, 61 or another file error where the settings cannot be written.
    void store() const;

private:
    using Lengths = std::array<double, 4>; ///< left, top, width and height in twips

    Lengths current() const;
    void fitOntoScreen();

    QWidget &m_frame;
    Lengths m_stored = {};
    Lengths m_restored = {}; ///< what the frame then had
};
