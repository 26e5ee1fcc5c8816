#pragma once

#include <QByteArray>

/// What a line of a modem's answer means.
enum class AtResult {
    None, ///< no result: an echo, a text
    Ok,
    Connected, ///< a call is there
    NoCarrier, ///< a call is over, or did not come about
    Busy,      ///< for whatever reason the call was not put through
    Error,
};

/// The result of the line \a line, which has no line end.
AtResult atResult(const QByteArray &line);
