#pragma once

#include "DialogStep.h"

#include <QWidget>
#include <functional>

/// Runs any code on a modal window of class \a Window: a form, an input box, a print dialog.
template<class Window>
class WindowStep : public DialogStep
{
public:
    WindowStep(const QString &name, std::function<void(Window &)> act)
        : m_name(name)
        , m_act(std::move(act))
    {}

    bool matches(const QWidget &window) const override
    {
        return dynamic_cast<const Window *>(&window) && window.objectName() == m_name;
    }
    void answer(QWidget &window) const override { m_act(dynamic_cast<Window &>(window)); }
    QString describe() const override { return QStringLiteral("a window named \"%1\"").arg(m_name); }

private:
    QString m_name;
    std::function<void(Window &)> m_act;
};
