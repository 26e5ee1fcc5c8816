#include "RtfKeywords.h"

#include <array>
#include <string_view>

namespace {

struct Row
{
    std::string_view spelling;
    RtfSubject subject;
};

/// In the order of RtfWord, Unknown first.
constexpr auto rows = std::to_array<Row>({{"", RtfSubject::None},
#define RTF_ROW(spelling, name, subject) {spelling, RtfSubject::subject},
                                          RTF_KEYWORDS(RTF_ROW)
#undef RTF_ROW
});

constexpr size_t slotCount = 2048; // a power of two, more than twice the words

constexpr quint32 slotOf(std::string_view spelling)
{
    quint32 hash = 2166136261U;
    for (const char c : spelling)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return (hash ^ (hash >> 15)) % slotCount;
}

/// Open addressing; 0 is a free slot.
constexpr std::array<quint16, slotCount> makeSlots()
{
    std::array<quint16, slotCount> slots{};
    for (quint16 word = 1; word < rows.size(); ++word) {
        size_t slot = slotOf(rows[word].spelling);
        while (slots[slot] != 0)
            slot = (slot + 1) % slotCount;
        slots[slot] = word;
    }
    return slots;
}

static_assert(rows.size() * 2 < slotCount);
constexpr std::array<quint16, slotCount> slots = makeSlots();

} // namespace

RtfWord RtfKeywords::find(QByteArrayView spelling)
{
    const std::string_view text(spelling.data(), size_t(spelling.size()));
    size_t slot = slotOf(text);
    while (slots[slot] != 0 && rows[slots[slot]].spelling != text)
        slot = (slot + 1) % slotCount;
    return RtfWord(slots[slot]);
}

RtfSubject RtfKeywords::subject(RtfWord word)
{
    return rows[size_t(word)].subject;
}

QByteArrayView RtfKeywords::spelling(RtfWord word)
{
    return rows[size_t(word)].spelling;
}
