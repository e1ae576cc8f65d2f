#pragma once

#include "platform/file_system.h"
#include "platform/win32/disk_kinds.h"

namespace my {

class CWin32FileSystem : public IFileSystem {
 public:
  std::wstring FullPath(const std::wstring& path) override;
  std::unique_ptr<IFindFiles> Find(const std::wstring& folder) override;
  PathKind Kind(const std::wstring& path) override;
  bool IsLink(const std::wstring& path) override;
  std::unique_ptr<IHeldFolder> HoldFolder(const std::wstring& path) override;
  uint64_t FileSize(const std::wstring& path) override;
  void CreateFolders(const std::wstring& path) override;
  bool CreateNewFolder(const std::wstring& path) override;
  void Copy(const std::wstring& from, const std::wstring& to, const CCopyProgress& progress,
            LinkCopy link) override;
  uint64_t FlushFile(const std::wstring& path, FlushDepth depth) override;
  void Move(const std::wstring& from, const std::wstring& to) override;
  void MoveOver(const std::wstring& from, const std::wstring& to) override;
  void RemoveFile(const std::wstring& path) override;
  void RemoveFolder(const std::wstring& path) override;
  std::unique_ptr<INewFile> CreateNewFile(const std::wstring& path, FileLife life) override;
  std::unique_ptr<INewFile> OpenToAppend(const std::wstring& path) override;
  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset) override;
  uint64_t FreeSpace(const std::wstring& folder) override;
  DiskKind Disk(const std::wstring& path) override { return m_disks.Of(path); }
  std::wstring TemporaryFolder() override;

 private:
  CDiskKinds m_disks;
};

}  // namespace my
