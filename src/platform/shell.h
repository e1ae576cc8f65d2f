// The door to the file manager and the web browser. The GUI thread calls.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace my {

// The bytes of a shell item ID list, as the shell hands it out, with its end mark.
using CShellIdList = std::vector<std::byte>;

class IShell {
 public:
  virtual ~IShell() = default;

  // Throws IDS_ID_LIST_TO_PATH_FAILED.
  virtual std::wstring PathOf(const CShellIdList& idList) = 0;

  // Opens a folder, file or address with the shell's default action. Throws IDS_SHELL_OPEN_FAILED.
  virtual void Open(const std::wstring& what) = 0;

  // Starts a program with its parameters. Throws IDS_SHELL_OPEN_FAILED.
  virtual void Run(const std::wstring& program, const std::wstring& parameters) = 0;
};

}  // namespace my
