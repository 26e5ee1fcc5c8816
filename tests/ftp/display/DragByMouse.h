#pragma once

#include <QAbstractItemView>
#include <QTest>
#include <QTimer>
#include <QWindow>

/// Drags \a row of one list onto another one of the same window; \a meanwhile is run when the drag has begun.
inline void dragByMouse(
    QAbstractItemView &from, int row, QAbstractItemView &onto, const std::function<void()> &meanwhile = [] {})
{
    QWidget &window = *from.window();
    QWindow *screen = window.windowHandle();
    const QPoint start =
        from.viewport()->mapTo(&window, from.visualRect(from.model()->index(row, 0)).center());
    const QPoint end = onto.viewport()->mapTo(&window, onto.viewport()->rect().center());
    QTest::mousePress(screen, Qt::LeftButton, {}, start);
    QTest::mouseMove(screen, start + QPoint(0, 30));
    QTimer::singleShot(0, &window, [=] { // in the drag, which takes what the window gets
        meanwhile();
        QTest::mouseMove(screen, end);
        QTest::mouseMove(screen, end + QPoint(1, 1));
        QTest::mouseRelease(screen, Qt::LeftButton, {}, end);
    });
    QTest::mouseMove(screen, start + QPoint(0, 31));
    QCoreApplication::processEvents();
}
