#pragma once

#include "LineSettings.h"

#include <QList>
#include <memory>
#include <vector>

class ModemList;
class TelephoneLine;

/// Makes the telephone lines of this computer.
namespace LineFinder {

/// A line for each of \a settings, in their order, also where its device is missing; behind them those of \a
/// modems that \a settings do not name, in their order, so that the numbers of the first ones stay. \a modems
/// outlives them.
std::vector<std::unique_ptr<TelephoneLine>> find(const QList<LineSettings> &settings,
                                                 const ModemList &modems);

} // namespace LineFinder
