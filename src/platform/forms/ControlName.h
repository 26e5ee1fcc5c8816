#pragma once

#include <QString>

/// The objectName of a control: its own, or of a control array the member's: {"cmddigit", 3} is "cmddigit_3".
class ControlName
{
public:
    ControlName(const char *name)
        : m_text(QString::fromLatin1(name))
    {}
    ControlName(const char *array, int index)
        : m_text(QString::fromLatin1(array) + u'_' + QString::number(index))
    {}

    const QString &text() const { return m_text; }

private:
    QString m_text;
};
