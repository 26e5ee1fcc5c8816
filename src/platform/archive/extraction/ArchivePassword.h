#pragma once

#include <QByteArray>
#include <functional>
#include <span>

/// The password of a job: asked for when an entry needs it first, and again after a wrong one.
class ArchivePassword
{
public:
    /// Fills the buffer up to a NUL; anything but 0 means that there is none.
    using Request = std::function<int(std::span<char>)>;

    explicit ArchivePassword(Request request)
        : m_request(std::move(request))
    {}

    /// The one known; asks where there is none yet. Empty when none can be had.
    const QByteArray &get();

    /// Empty when none is.
    const QByteArray &known() const { return m_password; }

    /// The one known is wrong for some entry. Asks for another one, and returns false when none can be had.
    /// The user is not asked again after three requests, or when one was refused; an empty answer is none for
    /// this entry.
    bool replace() { return ask(); }

    /// Takes back what replace() has put in the place of \a password, which is right for other entries.
    void restore(const QByteArray &password) { m_password = password; }

private:
    bool ask();

    Request m_request;
    QByteArray m_password;
    int m_requestsLeft = 3;
};
