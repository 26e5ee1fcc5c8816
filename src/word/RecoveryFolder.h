#pragma once

#include "RecoveryCopy.h"

#include <memory>
#include <vector>

/// The folder of recovery copies below the user's state folder, shared by all suites that run. A copy whose
/// lock no process holds is an orphan: its process has ended without saving or closing the document.
///
/// Knows no window and waits for no other process. Where the folder cannot be used, no copies are made, and
/// no error is shown.
namespace RecoveryFolder {

/// Its path; it need not exist.
QString path();

/// A new, empty copy; nullptr where none can be made. Makes what is missing of the folder, for its user
/// alone.
std::unique_ptr<RecoveryCopy> makeCopy();

/// Takes over all orphans, the oldest first, and clears away what was never written.
std::vector<std::unique_ptr<RecoveryCopy>> takeOrphans();

} // namespace RecoveryFolder
