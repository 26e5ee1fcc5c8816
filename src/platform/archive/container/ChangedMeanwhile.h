#pragma once

/// Another program has changed or made the archive while a job was about to replace it.
struct ChangedMeanwhile
{};
