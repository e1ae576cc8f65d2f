#pragma once

#include "platform/console.h"

namespace my {

// Only one object may exist at a time, because the Ctrl+C handler belongs to the process.
class CWin32Console : public IConsole {
 public:
  CWin32Console();
  ~CWin32Console() override;
  CWin32Console(const CWin32Console&) = delete;
  CWin32Console& operator=(const CWin32Console&) = delete;

  bool IsTerminal(Stream stream) const override;
  void Write(Stream stream, std::wstring_view text) override;
  std::optional<std::wstring> ReadLine() override;
  bool InterruptRequested() const override;

  // Gives up the console, which the user could close. Redirected streams stay.
  void Detach();
};

}  // namespace my
