#pragma once

#include <QComboBox>

/// The drop-down list of percentages.
class PercentList : public QComboBox
{
    Q_OBJECT

public:
    PercentList();

    /// Is a Click where another row was selected before.
    void setListIndex(int row);
    /// Selects the next row in \a direction, 1 or -1, if there is one. Without a selection it begins at 100
    /// %.
    void step(int direction);

Q_SIGNALS:
    /// A row was chosen, also the one that was selected already; or Return was pressed.
    void Click();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};
