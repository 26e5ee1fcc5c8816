#pragma once

#include "WmfRecord.h"

#include <QColor>

namespace WmfColor {

/// The colour that begins at word \a index. The byte above its three says how a palette would be used; there
/// is none on a screen of true colours.
inline QColor of(const WmfRecord &record, qsizetype index)
{
    const quint32 color = record.longWord(index);
    return QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF));
}

} // namespace WmfColor
