#pragma once

#include <unistd.h>
#include <utility>

/// An open file or folder, closed at the end.
class Descriptor
{
public:
    /// Owns \a descriptor; a negative number is none.
    explicit Descriptor(int descriptor = -1)
        : m_descriptor(descriptor)
    {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    bool isOpen() const { return m_descriptor >= 0; }
    int get() const { return m_descriptor; }

    /// Returns false, with errno, where data that was written before is lost.
    bool close()
    {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};
