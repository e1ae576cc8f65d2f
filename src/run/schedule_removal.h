#pragma once

#include "schedule/schedules.h"

namespace my {
class IConsole;
class IKnownFolders;
}  // namespace my

namespace qlm {

// Removes the schedules of this installation before it is uninstalled; with the rights of an administrator
// those of all users. Failures are printed to the error stream. Returns the exit code (exit_codes.h):
// kExitErrors if a schedule may have remained.
int RemoveSchedules(const CSchedulePorts& ports, const my::IKnownFolders& folders, my::IConsole& console);

}  // namespace qlm
