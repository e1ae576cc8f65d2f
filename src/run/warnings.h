#pragma once

#include <string>

#include "run/runner.h"

namespace qlm {

class CTargets;
struct CTask;

// Prints a warning to the error stream.
void Warn(const CRunnerPorts& ports, const std::wstring& text);

// Warns about folders that could not be read and are missing in the backup; no row reports them.
void WarnOfUnlisted(const CRunnerPorts& ports, const CTask& task, const CTargets& targets);

}  // namespace qlm
