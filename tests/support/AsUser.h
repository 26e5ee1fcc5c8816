#pragma once

#include <QList>
#include <QString>
#include <sys/types.h>

/// The process is an ordinary user while this exists, for tests about permissions: root may do everything.
/// The user is in no group but its own. Changes nothing where the tests run as an ordinary user anyway. A
/// program started meanwhile is that user's for good.
class AsUser
{
public:
    /// The user owns \a folder and all that is in it.
    explicit AsUser(const QString &folder);
    ~AsUser();
    AsUser(const AsUser &) = delete;
    AsUser &operator=(const AsUser &) = delete;

private:
    bool m_changed;
    QList<gid_t> m_groups; ///< those that the process was in beside its own
};
