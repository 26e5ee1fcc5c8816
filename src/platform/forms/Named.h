#pragma once

#include <QObject>

// Every control has its given name, so that a test, a style sheet or a person with an inspector finds it.

template<class Control>
Control *named(const char *name, Control *control)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// Of a control array the member \a index: "cmddigit_3".
template<class Control>
Control *named(const char *array, int index, Control *control)
{
    control->setObjectName(QString::fromLatin1(array) + u'_' + QString::number(index));
    return control;
}
