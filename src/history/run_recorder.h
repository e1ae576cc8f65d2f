#pragma once

#include <string>

#include "engine/backup_task.h"
#include "history/history_record.h"

namespace my {
class IKnownFolders;
}

namespace qlm {

class CBackupThread;

// Appends the ended run to the user's history, unless it only listed. `document` is the full path of what was
// run. Returns the text to show if this failed, empty if not. Never throws: the result of the run stands.
std::wstring RecordRun(const CEnginePorts& ports, const my::IKnownFolders& folders, const CBackupThread& run,
                       RunProgram program, const std::wstring& document);

}  // namespace qlm
