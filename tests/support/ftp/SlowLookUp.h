#pragma once

/// While it exists, look-ups of hosts' names in this process wait until release(), as where no name server
/// answers. They are made by other threads.
class SlowLookUp
{
public:
    SlowLookUp();
    /// As release().
    ~SlowLookUp();
    SlowLookUp(const SlowLookUp &) = delete;
    SlowLookUp &operator=(const SlowLookUp &) = delete;

    void release();
    /// How many look-ups wait now.
    int waiting() const;
};
