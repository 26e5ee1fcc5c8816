#pragma once

#include "ControlName.h"
#include "HasCaption.h"

// Every control is made by one call that also names it, so that a test, a style sheet or a developer with an
// inspector finds it, and says what it is to a screen reader.

/// \a caption without its mnemonic: "Save &As" is "Save As", "Salt && Pepper" is "Salt & Pepper".
QString withoutMnemonic(const QString &caption);

/// Names \a control, and has a screen reader call it \a spoken unless that is empty.
template<class Control>
Control *named(const ControlName &name, Control *control, const QString &spoken = {})
{
    control->setObjectName(name.text());
    if constexpr (std::derived_from<Control, QWidget>) {
        if (!spoken.isEmpty())
            control->setAccessibleName(spoken);
    }
    return control;
}

/// Makes a button, a label or a group box with \a caption, which a screen reader says without its mnemonic
/// unless \a spoken says more. The layout that takes the control gives it its parent.
template<HasCaption Control>
Control *named(const ControlName &name, const QString &caption, const QString &spoken = {})
{
    auto *control = named(name, new Control(caption), spoken.isEmpty() ? withoutMnemonic(caption) : spoken);
    if constexpr (std::derived_from<Control, QLabel>)
        control->setTextFormat(Qt::PlainText);
    return control;
}

/// Makes a control that shows no caption; a screen reader calls it \a spoken.
template<class Control>
requires(!HasCaption<Control>) Control *named(const ControlName &name, const QString &spoken = {})
{
    return named(name, new Control, spoken);
}
