#pragma once

#include <vector>

#include "document/document.h"
#include "run/options.h"
#include "run/runner.h"

namespace qlm {

// Prints what a run of these tasks would do, and the advice about them. Returns the exit code: kExitErrors if
// a row would fail. Throws what ChooseArchiver throws.
int PrintPlan(const CRunnerPorts& ports, const COptions& options, const CDocument& document,
              const std::vector<CTaskPtr>& tasks);

}  // namespace qlm
