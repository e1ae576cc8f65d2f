#pragma once

#include <string>

namespace qlm {

// Runs the desktop program on the calling thread until its main window is destroyed, and returns the exit
// code. OLE and the common controls must be initialized. `commandLine` is that of the process, `showCommand`
// an SW_ value.
int RunDesktopProgram(const std::wstring& commandLine, int showCommand);

}  // namespace qlm
