// The port to the file manager and the web browser. For use by the GUI thread.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace my {

// The bytes of a shell item ID list, including its terminator.
using CShellIdList = std::vector<std::byte>;

class IShell {
 public:
  virtual ~IShell() = default;

  // Throws IDS_ID_LIST_TO_PATH_FAILED.
  virtual std::wstring PathOf(const CShellIdList& idList) = 0;

  // Opens a folder, file or URL with the shell's default action. Throws IDS_SHELL_OPEN_FAILED.
  virtual void Open(const std::wstring& what) = 0;

  // Starts a program with parameters. Throws IDS_SHELL_OPEN_FAILED.
  virtual void Run(const std::wstring& program, const std::wstring& parameters) = 0;

  // Adds a document to the recent documents of the system, which appear in the jump list of the program. A
  // failure is ignored.
  virtual void AddRecent(const std::wstring& path) = 0;

  // Moves a file or folder to the recycle bin; never deletes it for good without asking the user. Returns
  // false if the user cancelled. Throws IDS_RECYCLE_NO_BIN for a drive without a recycle bin,
  // IDS_RECYCLE_FAILED.
  virtual bool Recycle(const std::wstring& path) = 0;
};

}  // namespace my
