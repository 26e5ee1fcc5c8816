#pragma once

#include <QByteArray>
#include <QList>

/// Cuts what a modem sends into lines and into the events that it marks with a DLE in voice mode. It keeps
/// nothing but the beginning of the line that is not complete yet.
class AtReader
{
public:
    static constexpr qsizetype longestLine = 256; ///< bytes; the rest of a longer one is dropped

    struct Item
    {
        bool isEvent = false;
        QByteArray text; ///< a line that is not empty, or the event's one letter
    };

    QList<Item> add(const QByteArray &bytes);
    void clear();

private:
    void finishLine(QList<Item> &items);

    QByteArray m_line;
    bool m_isEvent = false; ///< the next byte is
};
