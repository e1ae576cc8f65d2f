#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace my {

// Who may use a new process or thread through its handle.
struct CHandleSecurity {
  std::vector<std::byte> descriptor;  // a self-relative security descriptor; empty: the system's default
  bool inherit = false;               // whether child processes get the handle
};

// How the first window of a program appears; an empty text or no value leaves it to the system.
struct CStartupInformation {
  std::wstring desktop;
  std::wstring title;                // of a console
  std::optional<uint16_t> showMode;  // a value of the system, as for showing a window
};

struct CProcessStart {
  // Creation flags, values of the system.
  static constexpr uint32_t kNoWindow = 0x08000000;  // a console program gets no console window

  std::wstring program;        // full path
  std::wstring arguments;      // passed on as they are
  std::wstring workingFolder;  // empty: the caller's own
  bool wait = true;            // until the process has ended
  uint32_t creationFlags = 0;
  std::optional<std::vector<std::wstring>> environment;  // "NAME=value" each; no value: the caller's own
  CStartupInformation startup;
  bool inheritHandles = false;  // whether the process gets the caller's inheritable handles
  CHandleSecurity processSecurity;
  CHandleSecurity threadSecurity;  // of its first thread
};

class IProcess {
 public:
  // The exit code of a process that was not waited for.
  static constexpr uint32_t kStillActive = 259;

  virtual ~IProcess() = default;

  // Runs a program and returns its exit code. A program that is waited for ends with this process, also if
  // this process is killed. Callable from any thread.
  // Throws IDS_CREATE_PROCESS_FAILED, IDS_EXIT_CODE_FAILED.
  virtual uint32_t Run(const CProcessStart& start) = 0;
};

}  // namespace my
