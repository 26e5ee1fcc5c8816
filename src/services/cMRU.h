#pragma once

#include <QStringList>

class cRegistry;

/// A list of texts, the most recently used one first, without duplicates.
class cMRU
{
public:
    int MaxCount() const { return m_maxCount; }
    /// Items beyond \a count drop out, the oldest first; below 1 nothing is kept.
    void setMaxCount(int count);
    int Count() const { return int(m_items.size()); }
    /// The item at \a index, from 1. Throws RuntimeError 9 outside 1 to Count.
    QString item(int index) const;

    /// Puts \a text, letter for letter, at the top; the oldest item drops out where it was not there before
    /// and MaxCount is reached.
    void Add(const QString &text);

    // In the section that the registry is aimed at; its other properties stay.

    /// Throws RuntimeError 26001 when it cannot be written; what was written before that stays.
    void Serialise(const cRegistry &registry) const;
    /// Never fails; damaged numbers count as absent.
    void DeSerialise(const cRegistry &registry);

private:
    int m_maxCount = 16;
    QStringList m_items; ///< the newest first
};
