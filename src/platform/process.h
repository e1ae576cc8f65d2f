#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace my {

// Security attributes of a process or thread handle.
struct CHandleSecurity {
  std::vector<std::byte> descriptor;  // a self-relative security descriptor; empty: the system's default
  bool inherit = false;               // whether child processes inherit the handle
};

// The first window of a program. An empty text or nullopt leaves the choice to the system.
struct CStartupInformation {
  std::wstring desktop;
  std::wstring title;                // of a console
  std::optional<uint16_t> showMode;  // a SW_ value
};

struct CProcessStart {
  // Creation flags of the Windows API.
  static constexpr uint32_t kNoWindow = 0x08000000;  // a console program gets no console window

  std::wstring program;        // full path
  std::wstring arguments;      // passed on unchanged
  std::wstring workingFolder;  // empty: that of the caller
  bool wait = true;            // until the process has ended
  uint32_t creationFlags = 0;
  std::optional<std::vector<std::wstring>> environment;  // "NAME=value" each; nullopt: that of the caller
  CStartupInformation startup;
  bool inheritHandles = false;  // whether the process inherits the caller's inheritable handles
  CHandleSecurity processSecurity;
  CHandleSecurity threadSecurity;  // of the first thread

  // Called about once a second, on the calling thread, while the program is waited for. Must not throw.
  std::function<void()> whileWaiting;
};

class IProcess {
 public:
  // The exit code returned if the process is not waited for.
  static constexpr uint32_t kStillActive = 259;

  virtual ~IProcess() = default;

  // Runs a program and returns its exit code. A program that is waited for is terminated when this process
  // ends, also if this process is killed. Any thread may call. Throws IDS_CREATE_PROCESS_FAILED,
  // IDS_EXIT_CODE_FAILED.
  virtual uint32_t Run(const CProcessStart& start) = 0;
};

}  // namespace my
