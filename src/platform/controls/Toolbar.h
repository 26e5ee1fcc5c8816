#pragma once

#include "ToolbarRow.h"

#include <QMap>
#include <QToolBar>
#include <span>

/// A toolbar whose buttons are rows of a table, reached by position or by key. It tells which key was clicked
/// and runs no command itself.
class Toolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit Toolbar(QWidget *parent = nullptr);

    void setButtons(std::span<const ToolbarRow> rows);

    /// The button at \a position or with \a key. Throws RuntimeError 35601 when there is none.
    QAction &button(int position) const;
    QAction &button(const QString &key) const;

    /// Both reach the buttons from position \a first to \a last, separators included.
    void setButtonsEnabled(int first, int last, bool enabled);
    void setButtonsVisible(int first, int last, bool visible);

Q_SIGNALS:
    void ButtonClick(const QString &key);

protected:
    void changeEvent(QEvent *event) override;

private:
    void addRow(const ToolbarRow &row);
    void setIcons();

    QMap<int, QAction *> m_buttons;
    QMap<QAction *, QString> m_icons;
};
