// A file system in memory that is stricter than a real one: names are case-insensitive, trailing dots and
// spaces are dropped, devices exist in every folder, ":" opens a stream, drives can be missing, a new file or
// folder refuses its first rename, and a crash loses all unflushed bytes. Tests can make operations fail, and
// change the disk between them. Any thread may call the port, and may add and remove files.
#pragma once

#include "support/memory/memory_disk.h"
#include "support/memory/memory_faults.h"

namespace test {

// Has the drives C: and D: and the folder for temporary files. Assigning {} clears it.
class CMemoryFileSystem : public my::IFileSystem, public CFaults {
 public:
  CMemoryFileSystem() { AddFolder(m_temporaryFolder); }

  // Adds a file and its missing parents. An existing file gets the new content and keeps its place in the
  // order.
  void AddFile(const std::wstring& path, std::string content, my::CFileTime time = {});

  // Adds a file written by another program, not flushed yet.
  void AddUnflushedFile(const std::wstring& path, std::string content);

  // Adds a symbolic link, listed with size 0 and opened as its target, a file or folder. Without a target it
  // is a junction that denies listing.
  void AddLink(const std::wstring& path, const std::wstring& target = {}, my::CFileTime time = {});

  void AddFolder(const std::wstring& path);
  void Remove(const std::wstring& path);  // with everything below it

  // Sets whether folders can be held and whether the system keeps others from moving held ones. Not every
  // system does both.
  enum class Holding { Enforced, NotEnforced, Refused };
  void SetHolding(Holding holding) { m_holding = holding; }

  // What another program does: removes a file or folder, and puts a link in its place if there is a target.
  // Returns false for a folder that is held, or has a held one below it.
  bool Replace(const std::wstring& path, const std::wstring& target = {});

  std::map<std::wstring, std::string> Files() const;

  void SetTemporaryFolder(std::wstring path) { m_temporaryFolder = std::move(path); }

  // The free bytes of a drive; a drive that is not set has 1 TB.
  void SetFreeSpace(wchar_t drive, uint64_t bytes) { m_freeSpace[drive] = bytes; }

  // Sets whether copies report success with half of the content. A failed copy always leaves half of it.
  void ShortenCopies(bool shorten) { m_shortenCopies = shorten; }

  // Sets how often a new file, or a folder that contains one, refuses to be renamed; initially 1.
  void RefuseRenames(int count) { m_renameRefusals = count; }

  // The current folder changes with every call, as the system's open dialog might do.
  std::wstring FullPath(const std::wstring& path) override;

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& path) override;
  my::PathKind Kind(const std::wstring& path) override;
  bool IsLink(const std::wstring& path) override;
  std::unique_ptr<my::IHeldFolder> HoldFolder(const std::wstring& path) override;
  uint64_t FileSize(const std::wstring& path) override;
  void CreateFolders(const std::wstring& path) override;
  bool CreateNewFolder(const std::wstring& path) override;
  void Copy(const std::wstring& from, const std::wstring& to, const my::CCopyProgress& progress,
            my::LinkCopy link) override;
  uint64_t FlushFile(const std::wstring& path, my::FlushDepth depth) override;
  void Move(const std::wstring& from, const std::wstring& to) override;
  void MoveOver(const std::wstring& from, const std::wstring& to) override;
  void RemoveFile(const std::wstring& path) override { Delete(path, false); }
  void RemoveFolder(const std::wstring& path) override { Delete(path, true); }
  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring& path, my::FileLife life) override;
  std::unique_ptr<my::INewFile> OpenToAppend(const std::wstring& path) override;
  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) override;
  uint64_t FreeSpace(const std::wstring& folder) override;
  my::DiskKind Disk(const std::wstring&) override { return my::DiskKind::Unknown; }
  std::wstring TemporaryFolder() override;

 private:
  struct CFind;
  struct CHeldFolder;
  struct CNewFile;

  CStep Begin(Op op, const wchar_t* name, uint32_t messageId, const std::vector<std::wstring>& paths);
  void Rename(CStep step, const std::wstring& from, const std::wstring& to);
  void Delete(const std::wstring& path, bool folder);

  CMemoryDisk m_disk;
  std::wstring m_temporaryFolder = L"C:\\Temp\\";
  std::wstring m_currentFolder = L"C:\\";
  bool m_shortenCopies = false;
  int m_renameRefusals = 1;
  std::map<wchar_t, uint64_t> m_freeSpace;
  Holding m_holding = Holding::Enforced;
};

}  // namespace test
