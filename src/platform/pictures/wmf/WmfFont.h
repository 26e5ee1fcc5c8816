#pragma once

#include "WmfRecord.h"

#include <QFont>

/// The font of a metafile's texts.
struct WmfFont
{
    static WmfFont of(const WmfRecord &record);

    /// \a bytes in the font's character set.
    QString decoded(QByteArrayView bytes) const;
    /// With \a pixels to the unit, and at most \a most pixels tall.
    QFont scaled(double pixels, int most) const;

    QFont font;
    double height = -12;     ///< in units: of a line, or below zero of the letters alone
    double angle = 0;        ///< degrees, against the clock
    quint8 characterSet = 0; ///< as the file numbers them
};
