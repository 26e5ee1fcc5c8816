#pragma once

#include "ZIPUSERFUNCTIONS.h"

#include <QStringList>

class cZip;
struct ZPOPT;

/// Runs the jobs of cZip: prepares the zip library, and turns its callbacks into signals of the object whose
/// job it is.
namespace mZip {

/// Returns the library's result; ZipResult::Internal while another job runs. Throws as cZip::zip().
int VBZip(cZip &object, const QString &zipFile, const ZPOPT &options, const QStringList &fileSpecs);

/// The callbacks for a job of \a object, as they are at the beginning of a job.
ZIPUSERFUNCTIONS callbacksOf(cZip &object);

} // namespace mZip
