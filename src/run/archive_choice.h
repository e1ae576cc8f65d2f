#pragma once

#include <string>
#include <vector>

#include "document/task.h"
#include "run/runner.h"

namespace qlm {

// What the archives of a run are made with; empty where the run needs none.
struct CArchiveChoice {
  std::wstring archiverPath;
  std::wstring password;
};

// Finds the archiver and the password for the destinations of the tasks: from the options, else from the
// settings file, which is read only when something is wanted of it. An archiver that is not to be found stays
// empty and shows on the rows that need it. Throws IDS_PASSWORD_NEEDED when a destination needs a password
// and there is none, and what LoadArchiveSetting throws.
CArchiveChoice ChooseArchive(const CRunnerPorts& ports, const COptions& options,
                             const std::vector<CTaskPtr>& tasks);

}  // namespace qlm
