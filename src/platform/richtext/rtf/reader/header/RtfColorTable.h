#pragma once

#include "RtfPart.h"

#include <QColor>
#include <QList>

/// The colours of a document. The first entry, whatever it says, and those without numbers are the automatic
/// colour: that of the reader's text, or of no background.
class RtfColorTable : public RtfPart
{
public:
    /// Invalid for the automatic colour and for numbers outside the table.
    QColor color(int number) const { return number == 0 ? QColor() : m_colors.value(number); }

    void begin();
    void word(const RtfToken &token) override;
    void bytes(QByteArrayView bytes) override;

private:
    QList<QColor> m_colors;
    QColor m_next;
};
