#pragma once

#include "LineSettings.h"

#include <QWidget>

/// The part of the lines' dialog that has the fields of one kind of line.
class LinePage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Puts the line's settings into the fields.
    virtual void show(const LineSettings &line) = 0;
    /// Takes them back.
    virtual void read(LineSettings &line) const = 0;
    /// What is wrong with the fields, for the user; empty where nothing is.
    virtual QString fault() const = 0;
};
