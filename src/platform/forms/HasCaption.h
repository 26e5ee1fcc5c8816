#pragma once

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <concepts>

/// A control that is made with a caption.
template<class Control>
concept HasCaption = std::derived_from<Control, QAbstractButton> || std::derived_from<Control, QLabel> ||
    std::derived_from<Control, QGroupBox>;
