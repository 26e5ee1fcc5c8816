#pragma once

#include <chrono>

/// How long the service waits for a line.
struct LineLimits
{
    std::chrono::milliseconds accept = std::chrono::seconds(30); ///< until it dials
    std::chrono::milliseconds answer = std::chrono::seconds(60); ///< until the far end answers
    std::chrono::milliseconds hangUp = std::chrono::seconds(5);  ///< until a call has ended
};
