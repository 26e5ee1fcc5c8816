#pragma once

#include <QImage>
#include <QList>

/// A picture and its copies of half its size, a quarter, and so on, from which it is drawn small: quickly,
/// and without losing what is between the pixels that are drawn. The copies are made in pieces that take
/// about a millisecond, and have a third of the picture's bytes together.
class HalfSizes
{
public:
    /// Drops the copies of the picture before.
    void setPicture(const QImage &picture);
    const QImage &picture() const { return m_pictures.first(); }

    bool isComplete() const { return m_isComplete; }
    void makePiece();
    void makeAll();

    /// Which copy is drawn when one of the picture's pixels is \a scale pixels of the screen: the smallest
    /// that need not be magnified. 0 is the picture itself.
    int levelFor(double scale) const;
    /// The highest one that is there.
    int highestLevel() const { return int(m_pictures.size()) - 1; }
    const QImage &at(int level) const { return m_pictures[level]; }

private:
    static int half(int side) { return (side + 1) / 2; }
    bool begin();
    void halveRow(int row);

    QList<QImage> m_pictures{QImage()};
    QImage m_next; ///< the copy that is being made, down to m_nextRow
    int m_nextRow = 0;
    bool m_isComplete = true;
};
