#pragma once

#include "USERFUNCTION.h"

#include <QStringList>

class cUnzip;
struct DCLIST;

/// Runs the jobs of cUnzip: prepares the unzip library, and turns its callbacks into records and signals of
/// the object whose job it is.
namespace mUnzip {

/// Returns the library's result. Throws RuntimeError 9 for more than 1,023 names in a list; its source is
/// ".VBUnzip" behind the application's title.
int VBUnzip(cUnzip &object, const DCLIST &options, const QStringList &included, const QStringList &excluded);

/// The callbacks for a job of \a object, as they are at the beginning of a job.
USERFUNCTION callbacksOf(cUnzip &object);

} // namespace mUnzip
