#include "FileDrop.h"

#include "EventGate.h"
#include "FileNames.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <sys/stat.h>

namespace {

/// Not by QUrl::toLocalFile(), which loses bytes that are not UTF-8.
QByteArray bytesOf(const QUrl &url)
{
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

bool isFile(const QByteArray &path)
{
    struct stat state = {};
    return ::stat(path.constData(), &state) == 0 && S_ISREG(state.st_mode);
}

} // namespace

FileDrop::FileDrop(QWidget &onto, Filter isWanted)
    : QObject(&onto)
    , m_isWanted(std::move(isWanted))
{
    onto.setAcceptDrops(true);
    onto.installEventFilter(this);
}

QStringList FileDrop::filesIn(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls()) {
        const QByteArray path = url.isLocalFile() ? bytesOf(url) : QByteArray();
        if (isFile(path))
            paths.append(FileNames::fromBytes(path));
    }
    return paths;
}

QStringList FileDrop::wantedIn(const QMimeData &data) const
{
    QStringList paths = filesIn(data);
    if (m_isWanted)
        paths.removeIf([this](const QString &path) { return !m_isWanted(path); });
    return paths;
}

bool FileDrop::eventFilter(QObject *watched, QEvent *event)
{
    bool isOwn = false;
    run([&] {
        switch (event->type()) {
        case QEvent::DragEnter:
            m_takesDrag = !wantedIn(*static_cast<QDropEvent *>(event)->mimeData()).isEmpty();
            [[fallthrough]];
        case QEvent::DragMove:
        case QEvent::Drop:
            isOwn = take(*static_cast<QDropEvent *>(event));
            break;
        default:
            break;
        }
    });
    return isOwn || QObject::eventFilter(watched, event);
}

/// False where the drag is none of files.
bool FileDrop::take(QDropEvent &drag)
{
    if (!m_takesDrag)
        return false;
    drag.setDropAction(Qt::CopyAction); // whatever the other program proposes, the files stay with it
    drag.accept();
    if (drag.type() != QEvent::Drop)
        return true;
    const QStringList paths = wantedIn(*drag.mimeData());
    if (!paths.isEmpty()) // later: a handler that waits would keep the drag on the screen
        QMetaObject::invokeMethod(
            this, [this, paths] { run([&] { Q_EMIT Dropped(paths); }); }, Qt::QueuedConnection);
    return true;
}
