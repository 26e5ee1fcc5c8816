#pragma once

#include <QString>

/// A column of a list view.
struct ColumnHeader
{
    QString Key;
    QString Text;
    int Width; // twips
    Qt::Alignment Alignment = Qt::AlignLeft;
};
