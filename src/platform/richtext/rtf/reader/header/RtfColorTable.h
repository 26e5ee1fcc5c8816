#pragma once

#include "RtfPart.h"

#include <QColor>
#include <QList>

/// The colours of a document. An entry without numbers, as the first mostly is, is the automatic colour.
class RtfColorTable : public RtfPart
{
public:
    /// Invalid for the automatic colour and for numbers outside the table.
    QColor color(int number) const { return m_colors.value(number); }
    /// Behind text 0 means none, whatever the table's first entry.
    QColor background(int number) const { return number == 0 ? QColor() : color(number); }

    void begin();
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;

private:
    QList<QColor> m_colors;
    QColor m_next;
};
