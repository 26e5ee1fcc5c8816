#pragma once

/// Ends a job at once with this result. Steps of a job throw it.
struct JobEnd
{
    int result;
};
