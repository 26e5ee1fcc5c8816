#include "HostLabel.h"

#include <algorithm>

namespace {

constexpr qsizetype longestLabel = 63;

bool isLabelSign(QChar sign)
{
    return (sign >= u'A' && sign <= u'Z') || (sign >= u'a' && sign <= u'z') ||
           (sign >= u'0' && sign <= u'9') || sign == u'-' || sign == u'_';
}

} // namespace

QString HostLabel::of(const QString &name)
{
    const QString label = name.section(u'.', 0, 0);
    const bool isLabel = label.size() <= longestLabel && !label.startsWith(u'-') &&
                         std::all_of(label.cbegin(), label.cend(), isLabelSign);
    return isLabel ? label.toUpper() : QString();
}
