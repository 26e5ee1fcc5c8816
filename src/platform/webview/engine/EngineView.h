#pragma once

#include <QWebEngineView>

class EnginePage;

/// Shows a page, and hears the keys and clicks that go to it.
class EngineView : public QWebEngineView
{
    Q_OBJECT

public:
    EngineView(EnginePage &page, QWidget *parent);

Q_SIGNALS:
    void UserInput();
    /// The wheel was turned with Ctrl by \a steps.
    void ZoomWanted(int steps);

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    bool isForPage(const QKeyEvent &event) const;
};
