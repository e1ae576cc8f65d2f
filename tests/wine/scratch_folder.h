#pragma once

#include <string>

#include "platform/win32/win32_file_system.h"
#include "support/exception.h"
#include "support/paths.h"

namespace test {

// An empty folder on the real disk for one test, deleted with the object.
class CScratchFolder {
 public:
  CScratchFolder() {
    path = my::TakeNumberedPath(
        files.TemporaryFolder(), L"qlm_test", L"",
        [this](const std::wstring& candidate) { return files.CreateNewFolder(candidate); });
  }
  ~CScratchFolder() {
    try {
      files.RemoveFolder(path);
    } catch (const my::CException&) {
      // Another program may have it open; the next test starts with a new prefix.
    }
  }
  CScratchFolder(const CScratchFolder&) = delete;
  CScratchFolder& operator=(const CScratchFolder&) = delete;

  std::wstring At(const std::wstring& name) const { return my::JoinPath(path, name); }

  // Creates a file and its missing parents.
  void Write(const std::wstring& name, std::string_view bytes) {
    files.CreateFolders(std::wstring(my::ParentPath(At(name))));
    const auto file = files.CreateNewFile(At(name));
    file->Write(bytes);
    file->Close();
  }

  my::CWin32FileSystem real;
  my::IFileSystem& files = real;
  std::wstring path;
};

}  // namespace test
