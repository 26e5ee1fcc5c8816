#pragma once

#include "DialogStep.h"

#include <QMessageBox>
#include <optional>

/// Presses a button of a message box. Nothing is checked but title, text and what was asked for here.
class BoxStep : public DialogStep
{
public:
    BoxStep(const QString &title, const QString &text);

    BoxStep &icon(QMessageBox::Icon icon);
    BoxStep &buttons(QMessageBox::StandardButtons buttons);
    BoxStep &defaultButton(QMessageBox::StandardButton button);
    /// OK by default.
    BoxStep &press(QMessageBox::StandardButton button);

    bool matches(const QWidget &window) const override;
    void answer(QWidget &window) const override;
    QString describe() const override;

private:
    QString m_title;
    QString m_text;
    std::optional<QMessageBox::Icon> m_icon;
    std::optional<QMessageBox::StandardButtons> m_buttons;
    std::optional<QMessageBox::StandardButton> m_default;
    QMessageBox::StandardButton m_press = QMessageBox::Ok;
};
