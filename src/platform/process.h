#pragma once

#include <cstdint>
#include <string>

namespace my {

struct CProcessStart {
  std::wstring program;        // full path
  std::wstring arguments;      // passed on as they are
  std::wstring workingFolder;  // empty: the caller's own
  bool wait = true;            // until the process has ended
  bool console = false;        // whether a console program gets a window
};

class IProcess {
 public:
  // The exit code of a process that was not waited for.
  static constexpr uint32_t kStillActive = 259;

  virtual ~IProcess() = default;

  // Runs a program and answers its exit code. A program that is waited for ends with this process, also if
  // this process is killed. Callable from any thread.
  // Throws IDS_CREATE_PROCESS_FAILED, IDS_EXIT_CODE_FAILED.
  virtual uint32_t Run(const CProcessStart& start) = 0;
};

}  // namespace my
