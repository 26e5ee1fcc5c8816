#include "PanGesture.h"

#include <cmath>

namespace {

QPoint rounded(float x, float y)
{
    constexpr float most = 1 << 30; // beyond, a conversion to int has no meaning
    const auto whole = [](float value) {
        return int(std::nearbyint(std::fmin(std::fmax(value, -most), most)));
    };
    return {whole(x), whole(y)};
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
