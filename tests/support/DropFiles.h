#pragma once

#include <QByteArrayList>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

/// Drops \a uris, as a file manager gives them, onto \a widget. Returns whether it takes them.
inline bool dropUris(QWidget &widget, const QByteArrayList &uris)
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), uris.join("\r\n"));
    const QPoint place = widget.rect().center();
    QDragEnterEvent enter(place, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&widget, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(place, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    QDropEvent drop(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
    const bool isTaken = move.isAccepted() && drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
    QCoreApplication::processEvents();
    return isTaken;
}

/// The same with the files \a paths.
inline bool dropFiles(QWidget &widget, const QByteArrayList &paths)
{
    QByteArrayList uris;
    for (const QByteArray &path : paths)
        uris += "file://" + path.toPercentEncoding("/");
    return dropUris(widget, uris);
}
