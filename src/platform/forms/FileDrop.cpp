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

FileDrop::FileDrop(QWidget &onto)
    : QObject(&onto)
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

bool FileDrop::eventFilter(QObject *watched, QEvent *event)
{
    bool isOwn = true;
    run([&] {
        switch (event->type()) {
        case QEvent::DragEnter:
            m_takesDrag = !filesIn(*static_cast<QDropEvent *>(event)->mimeData()).isEmpty();
            [[fallthrough]];
        case QEvent::DragMove:
        case QEvent::Drop:
            take(*static_cast<QDropEvent *>(event));
            break;
        default:
            isOwn = false;
        }
    });
    return isOwn || QObject::eventFilter(watched, event);
}

void FileDrop::take(QDropEvent &drag)
{
    if (!m_takesDrag) {
        drag.ignore();
        return;
    }
    drag.setDropAction(Qt::CopyAction); // whatever the other program proposes, the files stay with it
    drag.accept();
    if (drag.type() != QEvent::Drop)
        return;
    const QStringList paths = filesIn(*drag.mimeData());
    if (!paths.isEmpty()) // later: a handler that waits would keep the drag on the screen
        QMetaObject::invokeMethod(
            this, [this, paths] { run([&] { Q_EMIT Dropped(paths); }); }, Qt::QueuedConnection);
}
