#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace bench {

// A file system without a disk: folders of equal content below any source, and every path that is asked for
// exists as a folder, so that a job finds its backups made.
class CFakeFiles : public my::IFileSystem {
 public:
  // The source holds `folders` folders of `filesInEach` files; without folders it holds the files itself.
  CFakeFiles(size_t folders, size_t filesInEach) : m_folders(folders), m_files(filesInEach) {}

  // Called whenever a job looks for its backup.
  std::function<void()> onKind;

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& pattern) override;
  my::PathKind Kind(const std::wstring& path) override;

  uint64_t FileSize(const std::wstring&) override { Refuse(); }
  void CreateFolders(const std::wstring&) override { Refuse(); }
  void Copy(const std::wstring&, const std::wstring&) override { Refuse(); }
  void Move(const std::wstring&, const std::wstring&) override { Refuse(); }
  void MoveOver(const std::wstring&, const std::wstring&) override { Refuse(); }
  void RemoveFile(const std::wstring&) override { Refuse(); }
  void RemoveFolder(const std::wstring&) override { Refuse(); }
  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring&) override { Refuse(); }
  std::string ReadFile(const std::wstring&, uint64_t, uint64_t) override { Refuse(); }
  std::wstring TemporaryFolder() override { Refuse(); }

  // Where tasks over these files have their source.
  static constexpr std::wstring_view kSource = L"C:\\source";

  // The lengths of the names: a file in a folder has a path of 60 characters.
  static constexpr size_t kFolderLength = 29;
  static constexpr size_t kFileLength = 30;

 private:
  [[noreturn]] static void Refuse();

  size_t m_folders;
  size_t m_files;
};

}  // namespace bench
