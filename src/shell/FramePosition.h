#pragma once

#include <QWidget>
#include <array>

/// Keeps the frame's place and size in the settings from one run to the next. What fits on no screen is
/// brought onto one, and is stored as it was unless the user changes it.
class FramePosition
{
public:
    explicit FramePosition(QWidget &frame);

    /// Throws RuntimeError 13 for a stored position that is no number.
    void restore();
    void store() const;

private:
    using Lengths = std::array<double, 4>; ///< left, top, width and height in twips

    Lengths current() const;
    void fitOntoScreen();

    QWidget &m_frame;
    Lengths m_stored = {};
    Lengths m_restored = {}; ///< what the frame then had
};
