#pragma once

#include "RtfWordRows.h"

#include <QMap>
#include <QStringList>
#include <QTextOption>

struct RtfToken;

/// The rows of tab stops that paragraphs have, each known by one number; 0 is the empty row.
class RtfTabStops
{
public:
    /// Adds what \a token says to the row \a row; false when it says nothing about tabs.
    bool apply(const RtfToken &token, int &row);

    QList<QTextOption::Tab> tabs(int row) const; ///< in pixels
    QString words(int row) const;                ///< as RichTextProperty::TabStops

private:
    QMap<int, QStringList> stops(int row) const;

    RtfWordRows m_rows;
};
