#pragma once

#include <string>

#include "document/task.h"

namespace qlm {

struct CEnginePorts;

// Returns a warning about a valid task: a destination is within its source, the source does not exist, or one
// of its archives cannot be created (ArchiveWarning). Empty if there is none. Checks the disk but not network
// paths, which can take half a minute to respond.
std::wstring TaskWarning(const CTask& task, const CEnginePorts& ports);

// Returns a warning if an archive cannot be created because its folder, its name for this task ID or the
// temporary folder has a space, at which the archiver would split the argument. Empty otherwise.
std::wstring ArchiveWarning(const CDst& dst, const std::wstring& taskId, const CEnginePorts& ports);

}  // namespace qlm
