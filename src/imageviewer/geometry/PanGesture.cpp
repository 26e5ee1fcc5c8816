#include "PanGesture.h"

#include <cmath>

namespace {

QPoint rounded(float x, float y)
{
    return {int(std::nearbyint(x)), int(std::nearbyint(y))};
}

} // namespace

void PanGesture::press(float x, float y, bool panMode)
{
    m_down = rounded(x, y);
    if (panMode)
        m_isDragging = true;
}

std::optional<QPoint> PanGesture::move(float x, float y)
{
    constexpr int countedMove = 5;
    if (++m_moveCount < countedMove)
        return {};
    m_moveCount = 0;
    if (!m_isDragging)
        return {};
    return rounded(x, y) - m_down;
}
