#pragma once

#include <QColor>
#include <QHash>
#include <QList>

class QBrush;

/// The colours that a document being written has used so far, in that order. Transparency is not kept.
class WrittenColours
{
public:
    /// The number of \a colour, from 1; 0 is the reader's own colour.
    int number(const QColor &colour);

    /// The number of a brush; 0 when it paints nothing.
    int number(const QBrush &brush);

    /// The colour table, a group; empty when no colour was used.
    QByteArray table() const;

private:
    QList<QRgb> m_colours;
    QHash<QRgb, int> m_numbers;
};
