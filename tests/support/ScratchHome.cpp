#include "ScratchHome.h"

#include "RegistryStore.h"

#include <QDir>

namespace {

void restore(const char *name, const QByteArray &value)
{
    if (value.isNull())
        qunsetenv(name);
    else
        qputenv(name, value);
}

} // namespace

ScratchHome::ScratchHome()
    : m_home(qgetenv("HOME"))
    , m_config(qgetenv("XDG_CONFIG_HOME"))
    , m_data(qgetenv("XDG_DATA_HOME"))
    , m_state(qgetenv("XDG_STATE_HOME"))
    , m_machine(RegistryStore::setMachineFolder(file(QStringLiteral("machine"))))
{
    QDir(path()).mkpath(QStringLiteral(".config"));
    QDir(path()).mkpath(QStringLiteral(".local/share"));
    qputenv("HOME", path().toUtf8());
    qputenv("XDG_CONFIG_HOME", file(QStringLiteral(".config")).toUtf8());
    qputenv("XDG_DATA_HOME", file(QStringLiteral(".local/share")).toUtf8());
    qputenv("XDG_STATE_HOME", file(QStringLiteral(".local/state")).toUtf8());
}

ScratchHome::~ScratchHome()
{
    RegistryStore::setMachineFolder(m_machine);
    restore("HOME", m_home);
    restore("XDG_CONFIG_HOME", m_config);
    restore("XDG_DATA_HOME", m_data);
    restore("XDG_STATE_HOME", m_state);
}
