#pragma once

#include <QPoint>
#include <optional>

/// The mouse on the picture, as panning sees it: every fifth move counts, so that the picture is not drawn
/// for each of them. Positions are twips from the picture's corner, rounded to whole ones.
class PanGesture
{
public:
    /// Moves drag from here on if \a panMode is on.
    void press(float x, float y, bool panMode);
    void release() { m_isDragging = false; }
    bool isDragging() const { return m_isDragging; }

    /// How far the mouse is from where it was pressed; nothing for a move that moves nothing.
    std::optional<QPoint> move(float x, float y);

private:
    QPoint m_down;
    bool m_isDragging = false;
    int m_moveCount = 0; ///< since the last one that counted
};
