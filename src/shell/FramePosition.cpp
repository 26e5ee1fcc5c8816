#include "FramePosition.h"

#include "Numbers.h"
#include "Paths.h"
#include "Settings.h"
#include "WindowGeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

namespace {

const QString section = QStringLiteral("Settings");

struct Length
{
    QString key;
    int fallback; ///< twips
    double (*get)(const QWidget &frame);
    void (*set)(QWidget &frame, double twips);
};

const std::array<Length, 4> lengths = {{
    {QStringLiteral("MainLeft"), 1000, WindowGeometry::left, WindowGeometry::setLeft},
    {QStringLiteral("MainTop"), 1000, WindowGeometry::top, WindowGeometry::setTop},
    {QStringLiteral("MainWidth"), 13200, WindowGeometry::width, WindowGeometry::setWidth},
    {QStringLiteral("MainHeight"), 9000, WindowGeometry::height, WindowGeometry::setHeight},
}};

/// The space for windows on the screen that shows \a place, else on the first screen.
QRect spaceAround(const QRect &place)
{
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().intersects(place))
            return screen->availableGeometry();
    }
    return QGuiApplication::primaryScreen()->availableGeometry();
}

} // namespace

FramePosition::FramePosition(QWidget &frame)
    : m_frame(frame)
{}

void FramePosition::restore()
{
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const QString text = Settings::get(Paths::applicationTitle, section, lengths[i].key,
                                           QString::number(lengths[i].fallback));
        m_stored[i] = double(Numbers::toSingle(text));
        lengths[i].set(m_frame, m_stored[i]);
    }
    fitOntoScreen();
    m_restored = current();
}

FramePosition::Lengths FramePosition::current() const
{
    Lengths now = {};
    for (std::size_t i = 0; i < lengths.size(); ++i)
        now[i] = lengths[i].get(m_frame);
    return now;
}

/// A stored position may be on a screen that is no longer connected, and a stored size larger than the screen
/// is now.
void FramePosition::fitOntoScreen()
{
    const QRect space = spaceAround(m_frame.geometry());
    const int titleBar = m_frame.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QSize size = m_frame.size();
    const QSize fitted = size.boundedTo(space.size() - QSize(0, titleBar));
    m_frame.resize(fitted);
    const bool isOutside = !space.intersects(m_frame.geometry());
    m_frame.move(isOutside || fitted.width() < size.width() ? space.left() : m_frame.x(),
                 isOutside || fitted.height() < size.height() ? space.top() : m_frame.y());
}

void FramePosition::store() const
{
    const Lengths now = current();
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const double twips = now[i] == m_restored[i] ? m_stored[i] : now[i];
        Settings::save(Paths::applicationTitle, section, lengths[i].key, Numbers::singleText(float(twips)));
    }
}
