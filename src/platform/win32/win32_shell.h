#pragma once

#include "platform/shell.h"

namespace my {

// Open and Run need COM set up on the calling thread: shell extensions may take part. Both show no error
// of their own.
class CWin32Shell : public IShell {
 public:
  std::wstring PathOf(const CShellIdList& idList) override;
  void Open(const std::wstring& what) override;
  void Run(const std::wstring& program, const std::wstring& parameters) override;
};

}  // namespace my
