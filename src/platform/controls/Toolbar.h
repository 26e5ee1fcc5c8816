#pragma once

#include "ToolbarMenuRow.h"
#include "ToolbarRow.h"

#include <QMap>
#include <QToolBar>
#include <span>

class QToolButton;

/// A toolbar whose buttons are rows of a table, reached by position or by key. It emits the key that was
/// clicked and runs no command itself.
class Toolbar : public QToolBar
{
    Q_OBJECT

public:
    explicit Toolbar(QWidget *parent = nullptr);

    void setButtons(std::span<const ToolbarRow> rows);
    /// The lists of the drop-down buttons that are there already.
    void setLists(std::span<const ToolbarMenuRow> rows);

    /// The button at \a position or with \a key. Throws RuntimeError 35601 when there is none.
    QAction &button(int position) const;
    QAction &button(const QString &key) const;
    /// The entry with \a key in a list. Throws RuntimeError 35601 when there is none.
    QAction &listEntry(const QString &key) const;

    /// Both reach the buttons from position \a first to \a last, separators included.
    void setButtonsEnabled(int first, int last, bool enabled);
    void setButtonsVisible(int first, int last, bool visible);

    /// The pressed look. A click leaves it as it is, save in a group, whose buttons release each other.
    void setPressed(const QString &key, bool pressed);
    bool isPressed(const QString &key) const;

Q_SIGNALS:
    void ButtonClick(const QString &key);
    void ButtonMenuClick(const QString &key);

protected:
    void changeEvent(QEvent *event) override;

private:
    void addRow(const ToolbarRow &row);
    void addList(QToolButton &button);
    void clicked(int position);
    void pressInGroup(int position);
    bool isInGroup(int position) const;
    QToolButton &toolButton(const QString &key) const;
    void setIcons();

    QMap<int, QAction *> m_buttons;
    QMap<int, ToolbarRow::Style> m_styles;
    QMap<QAction *, QString> m_icons;
};
