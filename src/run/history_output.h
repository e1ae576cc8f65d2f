#pragma once

#include "run/options.h"
#include "run/runner.h"

namespace qlm {

// Prints the history: the runs, newest first, with their rows, and the last success of each task; with a
// document only what concerns it. Returns the exit code (exit_codes.h).
int ShowHistory(const CRunnerPorts& ports, const COptions& options);

}  // namespace qlm
