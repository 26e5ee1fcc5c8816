#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class QDropEvent;
class QMimeData;
class QWidget;

/// Lets files be dropped onto a widget, from a file manager or another program. Folders are not taken.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    using Filter = std::function<bool(const QString &path)>;

    /// A widget that is disabled takes nothing. Files that \a isWanted is false for are not seen. Drags of
    /// anything else are left to the widget. Is owned by \a onto.
    explicit FileDrop(QWidget &onto, Filter isWanted = {});

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// The paths of the files of this computer that \a data names, as FileNames has them.
    static QStringList filesIn(const QMimeData &data);

Q_SIGNALS:
    /// Comes by an event of its own, when the drag is over. There is one path at least.
    void Dropped(const QStringList &paths);

private:
    bool take(QDropEvent &drag);
    QStringList wantedIn(const QMimeData &data) const;

    Filter m_isWanted;
    bool m_takesDrag = false; ///< the drag that is over the widget has files
};
