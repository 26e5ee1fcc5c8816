#pragma once

#include "DialogStep.h"

#include <QMessageBox>
#include <optional>

/// Types into an input box and presses one of its buttons, OK or Cancel. Nothing is checked but title, prompt
/// and what was asked for here.
class InputStep : public DialogStep
{
public:
    InputStep(const QString &title, const QString &prompt);

    /// The text in the box when it comes up.
    InputStep &suggests(const QString &text);
    /// Replaces what the box suggests; without it the suggestion stays.
    InputStep &type(const QString &text);
    /// OK unless another is asked for.
    InputStep &press(QMessageBox::StandardButton button);

    bool matches(const QWidget &window) const override;
    void answer(QWidget &window) const override;
    QString describe() const override;

private:
    QString m_title;
    QString m_prompt;
    std::optional<QString> m_suggestion;
    std::optional<QString> m_text;
    QMessageBox::StandardButton m_press = QMessageBox::Ok;
};
