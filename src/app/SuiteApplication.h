#pragma once

#include <QApplication>

/// The application object. It is the net under the event gate: an exception that came past every handler's
/// own gate ends in the default error box all the same.
class SuiteApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;
};
