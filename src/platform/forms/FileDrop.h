#pragma once

#include <QObject>
#include <QStringList>

class QDropEvent;
class QMimeData;
class QWidget;

/// Lets files be dropped onto a widget, from a file manager or another program. Folders are not taken.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// A widget that is disabled takes nothing. Is owned by \a onto.
    explicit FileDrop(QWidget &onto);

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// The paths of the files of this computer that \a data names, as FileNames has them.
    static QStringList filesIn(const QMimeData &data);

Q_SIGNALS:
    /// Comes by an event of its own, when the drag is over. There is one path at least.
    void Dropped(const QStringList &paths);

private:
    void take(QDropEvent &drag);

    bool m_takesDrag = false; ///< the drag that is over the widget has files
};
