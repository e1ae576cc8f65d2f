#pragma once

namespace qlm {

// The exit codes of the console runner, for scripts and the Task Scheduler.
inline constexpr int kExitDone = 0;      // every row was created or skipped
inline constexpr int kExitErrors = 1;    // a row has an error
inline constexpr int kExitUnusable = 2;  // bad usage, unreadable document, nothing to run
inline constexpr int kExitStopped = 3;   // stopped by the user

}  // namespace qlm
