#pragma once

#include "RtfBorders.h"
#include "RtfTabStops.h"

/// What paragraphs have in rows of words.
struct RtfParagraphRows
{
    RtfTabStops stops;
    RtfBorders borders;
};
