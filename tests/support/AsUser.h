#pragma once

#include <QString>

/// The process is an ordinary user while this exists, for tests about permissions: root may do everything.
/// Changes nothing where the tests run as an ordinary user anyway. A program started meanwhile is that user's
/// for good.
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
};
