#include "SuiteApplication.h"

#include "EventGate.h"

bool SuiteApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        EventGate::failWithCurrentException(); // the receiver may be deleted already
        return false;
    }
}
