#pragma once

#include <string>

namespace qlm {

// Runs the desktop program on the calling thread, which has OLE and the common controls, until its main
// window is gone. `commandLine` is that of the process, `showCommand` how the window is to appear. Answers
// the exit code.
int RunProgram(const std::wstring& commandLine, int showCommand);

}  // namespace qlm
