#pragma once

#include "WmfFont.h"
#include "WmfMapping.h"

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QRegion>
#include <optional>

/// How a metafile draws at the moment; what it saves and restores.
struct WmfState
{
    explicit WmfState(const WmfMapping &map)
        : mapping(map)
    {}

    WmfMapping mapping;
    QPen pen = QPen(Qt::black, 0); ///< its width in units
    QBrush brush = QBrush(Qt::white);
    WmfFont font;
    QColor textColor = Qt::black;
    QColor background = Qt::white;
    bool fillsBackground = true; ///< behind texts, hatches and dashes
    int textAlignment = 0;       ///< as the file has it
    int textSpacing = 0;         ///< units between characters
    Qt::FillRule fillRule = Qt::OddEvenFill;
    std::optional<QPainter::CompositionMode> mode =
        QPainter::CompositionMode_SourceOver; ///< none draws nothing
    QPointF position;                         ///< in units
    std::optional<QRegion> clip;              ///< in pixels
};
