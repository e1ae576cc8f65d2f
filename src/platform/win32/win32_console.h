#pragma once

#include "platform/console.h"

namespace my {

// At most one object of this class may live at a time: the system's Ctrl+C handler is one for the process.
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
};

}  // namespace my
