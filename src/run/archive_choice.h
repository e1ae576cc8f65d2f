#pragma once

#include <string>
#include <vector>

#include "document/task.h"
#include "run/runner.h"

namespace qlm {

// Archiver and password of a run; empty if the run does not need them.
struct CArchiveChoice {
  std::wstring archiverPath;
  std::wstring password;
};

// Determines archiver and password for the destinations of the tasks: from the options, or from the settings
// file, which is read only if needed. If no archiver is found, its path is empty and the rows that need it
// fail. Throws IDS_PASSWORD_NEEDED if a destination needs a password and none is known,
// IDS_PASSWORD_BAD_CHARACTER, and what LoadArchiveSetting throws.
CArchiveChoice ChooseArchive(const CRunnerPorts& ports, const COptions& options,
                             const std::vector<CTaskPtr>& tasks);

// What a plan needs to know about the archives of a run.
struct CPlannedArchive {
  std::wstring archiverPath;     // empty if there is none or no task needs one
  bool passwordMissing = false;  // a run would throw IDS_PASSWORD_NEEDED
};

// Determines the archiver in the same way, and asks for nothing. Throws what LoadArchiveSetting throws.
CPlannedArchive PlanArchive(const CRunnerPorts& ports, const COptions& options,
                            const std::vector<CTaskPtr>& tasks);

}  // namespace qlm
