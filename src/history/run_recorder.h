#pragma once

#include <functional>
#include <string>

#include "engine/backup_task.h"
#include "history/history_record.h"

namespace my {
class IKnownFolders;
}

namespace qlm {

class CBackupThread;

// Returns the work that appends the ended run to the user's history; empty for a run that only listed. The
// work may run on any thread, and needs only the ports. It returns the text to show if it failed, empty if
// not, and never throws: the result of the run is not affected. `document` is the full path of what was run.
std::function<std::wstring()> RunRecord(const CEnginePorts& ports, const my::IKnownFolders& folders,
                                        const CBackupThread& run, RunProgram program,
                                        const std::wstring& document);

}  // namespace qlm
