#include "AtResult.h"

namespace {

struct Row
{
    const char *beginning;
    AtResult result;
};

constexpr Row rows[] = {
    {"OK", AtResult::Ok},
    {"VCON", AtResult::Connected},
    {"CONNECT", AtResult::Connected},
    {"NO CARRIER", AtResult::NoCarrier},
    {"BUSY", AtResult::Busy},
    {"NO ANSWER", AtResult::Busy},
    {"NO DIALTONE", AtResult::Busy},
    {"NO DIAL TONE", AtResult::Busy},
    {"BLACKLISTED", AtResult::Busy},
    {"DELAYED", AtResult::Busy},
    {"ERROR", AtResult::Error},
    {"+CME ERROR", AtResult::Error},
    {"+CMS ERROR", AtResult::Error},
};

} // namespace

AtResult atResult(const QByteArray &line)
{
    for (const Row &row : rows) {
        const QByteArrayView beginning(row.beginning);
        const bool isWhole = line.size() == beginning.size();
        if (line.startsWith(beginning) &&
            (isWhole || line[beginning.size()] == ' ' || line[beginning.size()] == ':'))
            return row.result;
    }
    return AtResult::None;
}
