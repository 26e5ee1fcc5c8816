#pragma once

#include <QObject>

/// An interface to load: it answers with its argument.
class Echo : public QObject
{
    Q_OBJECT
public:
    virtual QString answer(const QString &call) = 0;

Q_SIGNALS:
    /// Comes inside answer(); a listener may set \a again for a second one.
    void heard(const QString &call, bool &again);
};
