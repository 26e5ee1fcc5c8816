#pragma once

#include <unistd.h>

/// The rights of a user who is not root, for as long as it exists: root may read everything.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        if (m_user == 0 && ::seteuid(nobody) != 0)
            ::_exit(1);
    }
    ~OrdinaryUser()
    {
        if (m_user == 0 && ::seteuid(m_user) != 0)
            ::_exit(1);
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_user = ::geteuid();
};
