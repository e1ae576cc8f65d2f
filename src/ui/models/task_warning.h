#pragma once

#include <string>

#include "document/task.h"

namespace qlm {

struct CEnginePorts;

// Returns what the user should know of a task that no rule forbids: a destination lies within its source, the
// source does not exist, or one of its archives cannot be created (ArchiveWarning). Empty if there is nothing
// to say. Looks at the disk, but never at the network, where an answer can take half a minute.
std::wstring TaskWarning(const CTask& task, const CEnginePorts& ports);

// Returns the warning that an archive cannot be created because there is a space in its folder, in its name
// for that task ID, or in the folder for temporary files: the archiver would take each for two arguments.
// Empty for anything else.
std::wstring ArchiveWarning(const CDst& dst, const std::wstring& taskId, const CEnginePorts& ports);

}  // namespace qlm
