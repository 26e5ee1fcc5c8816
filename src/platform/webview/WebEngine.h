#pragma once

#include <QObject>

class WebControl;
class QWidget;

/// What the module has to offer: web browser controls.
///
/// A program that was started without a shared OpenGL context sets one before it loads the module.
class WebEngine : public QObject
{
    Q_OBJECT

public:
    /// A control that shows no page yet. Controls that exist at the same time share cookies and cache, which
    /// are forgotten with the last of them.
    virtual WebControl *makeControl(QWidget *parent) = 0;
};
