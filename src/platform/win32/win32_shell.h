#pragma once

#include "platform/shell.h"

namespace my {

// Open and Run need COM initialized on the calling thread, because of shell extensions. Neither shows an
// error message.
class CWin32Shell : public IShell {
 public:
  std::wstring PathOf(const CShellIdList& idList) override;
  void Open(const std::wstring& what) override;
  void Run(const std::wstring& program, const std::wstring& parameters) override;
  void AddRecent(const std::wstring& path) override;
  bool Recycle(const std::wstring& path) override;
};

}  // namespace my
