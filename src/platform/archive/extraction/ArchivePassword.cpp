#include "ArchivePassword.h"

#include <algorithm>
#include <array>

const QByteArray &ArchivePassword::get()
{
    if (m_password.isEmpty())
        ask();
    return m_password;
}

bool ArchivePassword::ask()
{
    std::array<char, 256> buffer = {};
    if (m_requestsLeft == 0 || !m_request)
        return false;
    --m_requestsLeft;
    if (m_request(buffer) != 0) {
        m_requestsLeft = 0;
        return false;
    }
    const QByteArray answer(buffer.data(), std::find(buffer.begin(), buffer.end(), '\0') - buffer.begin());
    if (answer.isEmpty())
        return false;
    m_password = answer;
    return true;
}
