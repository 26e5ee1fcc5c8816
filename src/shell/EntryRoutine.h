#pragma once

/// The suite's entry routine: settings, splash, frame. A failure from the splash on shows the fatal
/// error report and ends the process. The event loop is run by the caller.
void EntryRoutine();
