#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A variable of the environment that is set to \a value for one test, or unset without one.
class ScratchVariable
{
public:
    explicit ScratchVariable(const char *name, const QByteArray &value = {})
        : m_name(name)
        , m_before(qgetenv(name))
    {
        put(value);
    }
    ~ScratchVariable() { put(m_before); }
    ScratchVariable(const ScratchVariable &) = delete;
    ScratchVariable &operator=(const ScratchVariable &) = delete;

private:
    void put(const QByteArray &value) const
    {
        if (value.isNull())
            qunsetenv(m_name);
        else
            qputenv(m_name, value);
    }

    const char *m_name;
    QByteArray m_before;
};
