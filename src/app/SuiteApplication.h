#pragma once

#include <QApplication>

/// The application object. It backs up the event gate: an exception that no gate caught still ends in the
/// default error box.
class SuiteApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;
};
