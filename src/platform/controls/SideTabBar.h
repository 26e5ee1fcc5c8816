#pragma once

#include <QTabBar>

/// Tabs in a column beside the page, with captions that read from left to right, for more tabs than fit into
/// a row.
class SideTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit SideTabBar(QWidget *parent = nullptr);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void paintTab(QPainter &painter, int index) const;
};
