// A disk in memory for the tests: case-insensitive, with failures and crashes where a test wants them.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "support/exception.h"

namespace test {

// What changes the disk stands from CREATE_FOLDERS on. REMOVE is for files and folders.
enum class Op {
  FIND,
  NEXT,
  KIND,
  SIZE,
  READ,
  TEMP_FOLDER,
  CREATE_FOLDERS,
  COPY,
  MOVE,
  MOVE_OVER,
  REMOVE,
  CREATE_FILE,
  WRITE,
  FLUSH,
  CLOSE
};

// The program was killed and the power failed; no handler of exceptions gets an operation done any more.
struct CCrash {};

// Roots of drives exist, and so does the folder for temporary files. Assigning {} makes a new disk.
class CMemoryFileSystem : public my::IFileSystem {
 public:
  CMemoryFileSystem() { AddFolder(m_temporaryFolder); }

  // Literal trees, made with all missing parents; a file that exists gets the new content in its old place.
  void AddFile(const std::wstring& path, std::string content, my::CFileTime time = {},
               uint32_t attributes = 0);
  void AddFolder(const std::wstring& path);
  void Remove(const std::wstring& path);  // with all below it
  std::map<std::wstring, std::string> Files() const;

  void SetTime(my::CFileTime now) { m_now = now; }  // of what is made from now on
  void SetTemporaryFolder(std::wstring path) { m_temporaryFolder = std::move(path); }

  // Whether a failed copy leaves half of the content (the default), and whether copies succeed with half.
  void KeepFailedCopies(bool keep) { m_keepFailedCopies = keep; }
  void ShortenCopies(bool shorten) { m_shortenCopies = shorten; }

  // Lets the n-th operation of that kind from now on fail, n from 1; each kind has a countdown of its own.
  void FailAt(Op op, int n, uint32_t win32 = my::kErrorDiskFull) { m_faults[op] = {n, win32}; }

  // Crashes at the n-th changing operation from now on: it is half done where it can be, files that were
  // written and not flushed lose their second half, and from then on every operation throws CCrash.
  void CrashAt(int n) { m_crashIn = n; }

  void ClearFaults();  // also ends a crash
  bool Failed() const { return m_failed; }
  int Count(Op op) { return m_counts[op]; }
  std::vector<std::wstring> Log() const;  // "copy C:\a -> C:\b"

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& pattern) override;
  my::PathKind Kind(const std::wstring& path) override;
  uint64_t FileSize(const std::wstring& path) override;
  void CreateFolders(const std::wstring& path) override;
  void Copy(const std::wstring& from, const std::wstring& to) override;
  void Move(const std::wstring& from, const std::wstring& to) override { Rename(Op::MOVE, from, to); }
  void MoveOver(const std::wstring& from, const std::wstring& to) override {
    Rename(Op::MOVE_OVER, from, to);
  }
  void RemoveFile(const std::wstring& path) override { Delete(path, false); }
  void RemoveFolder(const std::wstring& path) override { Delete(path, true); }
  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring& path) override;
  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) override;
  std::wstring TemporaryFolder() override;

 private:
  struct CEntry;
  using CEntryPtr = std::shared_ptr<CEntry>;
  struct CStep;
  struct CFindInMemory;
  struct CFileInMemory;
  struct CFault {
    int left;
    uint32_t win32;
  };

  CStep Begin(Op op, const std::vector<std::wstring>& paths);
  CEntryPtr Lookup(const std::wstring& path) const;
  bool IsFolder(const std::wstring& path) const;
  bool HasParent(const std::wstring& path) const;
  CEntryPtr Insert(const std::wstring& path, uint32_t attributes);
  std::vector<std::wstring> MissingFolders(const std::wstring& path) const;
  void Rename(Op op, const std::wstring& from, const std::wstring& to);
  void Delete(const std::wstring& path, bool folder);

  std::unique_ptr<std::mutex> m_lock = std::make_unique<std::mutex>();
  std::vector<CEntryPtr> m_entries;  // in the order in which they came
  my::CFileTime m_now;
  std::wstring m_temporaryFolder = L"C:\\Temp\\";
  bool m_keepFailedCopies = true;
  bool m_shortenCopies = false;
  std::map<Op, CFault> m_faults;
  std::map<Op, int> m_counts;
  std::vector<std::wstring> m_log;
  int m_crashIn = 0;
  bool m_crashed = false;
  bool m_failed = false;
};

}  // namespace test
