#include "WmfObjects.h"

namespace {

constexpr std::size_t room = 4096;

} // namespace

void WmfObjects::add(Object object)
{
    if (!m_free.empty()) {
        m_objects[std::size_t(*m_free.begin())] = std::move(object);
        m_free.erase(m_free.begin());
    } else if (m_objects.size() < room) {
        m_objects.push_back(std::move(object));
    }
}

void WmfObjects::remove(int number)
{
    if (std::holds_alternative<std::monostate>(at(number)))
        return;
    m_objects[std::size_t(number)] = std::monostate();
    m_free.insert(number);
}

const WmfObjects::Object &WmfObjects::at(int number) const
{
    static const Object none;
    return number >= 0 && std::size_t(number) < m_objects.size() ? m_objects[std::size_t(number)] : none;
}
