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

constexpr int leastGrip = 100; // pixels of the title bar by which a window can be moved

bool canBeMovedIn(const QRect &space, const QRect &titleBar)
{
    const QRect seen = space.intersected(titleBar);
    return seen.height() == titleBar.height() && seen.width() >= qMin(leastGrip, titleBar.width());
}

/// The space for windows on the screen by which a window with \a titleBar can be moved, else on the first
/// one.
QRect spaceAround(const QRect &titleBar)
{
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (canBeMovedIn(screen->availableGeometry(), titleBar))
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
    const int titleHeight = m_frame.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect titleBar(m_frame.pos(), QSize(m_frame.width(), titleHeight));
    const QRect space = spaceAround(titleBar);
    const QSize size = m_frame.size();
    const QSize fitted = size.boundedTo(space.size() - QSize(0, titleHeight));
    m_frame.resize(fitted);
    const bool isOutside = !canBeMovedIn(space, titleBar);
    m_frame.move(isOutside || fitted.width() < size.width() ? space.left() : m_frame.x(),
                 isOutside || fitted.height() < size.height() ? space.top() : m_frame.y());
}

void FramePosition::store() const
{
    const Lengths now = current();
    QList<std::pair<QString, QString>> values;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const double twips = now[i] == m_restored[i] ? m_stored[i] : now[i];
        values.append({lengths[i].key, Numbers::singleText(float(twips))});
    }
    Settings::save(Paths::applicationTitle, section, values);
}
