#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "support/paths.h"

namespace bench {

// Yields `count` entries named "000...1", "000...2" and so on, all with the same attributes.
class CFakeFind : public my::IFindFiles {
 public:
  CFakeFind(size_t count, size_t nameLength, uint32_t attributes)
      : m_left(count), m_attributes(attributes), m_name(nameLength, L'0') {}

  bool Next(my::CFindData& entry) override {
    if (m_left == 0) return false;
    --m_left;
    size_t at = m_name.size() - 1;
    for (; m_name[at] == L'9'; --at) m_name[at] = L'0';
    ++m_name[at];
    entry = {m_name, {133'000'000'000'000'000}, 4096, m_attributes};
    return true;
  }

 private:
  size_t m_left;
  uint32_t m_attributes;
  std::wstring m_name;
};

// The shape of a tree: every folder of a level has the same number of folders, and those of the last level
// have the files.
struct CFakeShape {
  std::vector<size_t> folders = {};
  size_t files = 1;  // in each folder of the last level
  size_t folderName = 11;
  size_t fileName = 24;
};

// A file system without a disk. Every queried path exists as a folder, so a job finds its backups up to date.
class CFakeFiles : public my::IFileSystem {
 public:
  explicit CFakeFiles(CFakeShape shape) : m_shape(std::move(shape)) {}

  // Called whenever a job queries the kind of a path.
  std::function<void()> onKind = [] {};

  // The source folder of tasks.
  static constexpr std::wstring_view kSource = L"C:\\source";

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& folder) override {
    const std::wstring path = my::JoinPath(folder, {});
    const auto level = static_cast<size_t>(std::ranges::count(path, my::kSeparator)) - 2;
    if (level >= m_shape.folders.size())
      return std::make_unique<CFakeFind>(m_shape.files, m_shape.fileName, 0);
    return std::make_unique<CFakeFind>(m_shape.folders[level], m_shape.folderName, my::kAttributeFolder);
  }

  my::PathKind Kind(const std::wstring&) override {
    onKind();
    return my::PathKind::Folder;
  }

  std::wstring FullPath(const std::wstring&) override { Refuse(); }
  bool IsLink(const std::wstring&) override { return false; }
  std::unique_ptr<my::IHeldFolder> HoldFolder(const std::wstring&) override { Refuse(); }
  uint64_t FileSize(const std::wstring&) override { Refuse(); }
  void CreateFolders(const std::wstring&) override { Refuse(); }
  bool CreateNewFolder(const std::wstring&) override { Refuse(); }
  uint64_t FlushFile(const std::wstring&, my::FlushDepth) override { Refuse(); }
  void Copy(const std::wstring&, const std::wstring&, const my::CCopyProgress&, my::LinkCopy) override {
    Refuse();
  }
  void Move(const std::wstring&, const std::wstring&) override { Refuse(); }
  void MoveOver(const std::wstring&, const std::wstring&) override { Refuse(); }
  void RemoveFile(const std::wstring&) override { Refuse(); }
  void RemoveFolder(const std::wstring&) override { Refuse(); }
  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring&, my::FileLife) override { Refuse(); }
  std::unique_ptr<my::INewFile> OpenToAppend(const std::wstring&) override { Refuse(); }
  std::string ReadFile(const std::wstring&, uint64_t, uint64_t) override { Refuse(); }
  uint64_t FreeSpace(const std::wstring&) override { return uint64_t{1} << 40; }
  my::DiskKind Disk(const std::wstring&) override { return my::DiskKind::NoSeeks; }
  std::wstring TemporaryFolder() override { Refuse(); }

 private:
  [[noreturn]] static void Refuse() { throw std::logic_error("a job that has nothing to do does something"); }

  CFakeShape m_shape;
};

}  // namespace bench
