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

// REMOVE stands for files and folders. The changing kinds are CREATE_FOLDERS to CLOSE.
enum class Op {
  FIND, NEXT, KIND, SIZE, READ, TEMP_FOLDER,
  CREATE_FOLDERS, COPY, MOVE, MOVE_OVER, REMOVE, CREATE_FILE, WRITE, FLUSH, CLOSE
};

// The program was killed and the power failed: not to be caught by the program's own handlers of exceptions,
// except by catch (...), which gets no operation done any more.
struct CCrash {};

// Roots of drives exist; so does the folder for temporary files, "C:\Temp\". Movable between uses.
class CMemoryFileSystem : public my::IFileSystem {
 public:
  CMemoryFileSystem();

  // Make literal trees, with all missing parents; a file that exists gets the new content in its old place.
  void AddFile(const std::wstring& path, std::string content, my::CFileTime time = {}, uint32_t attributes = 0);
  void AddFolder(const std::wstring& path);
  void Remove(const std::wstring& path);  // with all below it

  std::map<std::wstring, std::string> Files() const;

  // The last-write time of what is made from now on.
  void SetTime(my::CFileTime now) { m_now = now; }
  void SetTemporaryFolder(std::wstring path) { m_temporaryFolder = std::move(path); }

  // Whether a failed copy leaves half of its content (it does at first), and whether copies succeed with half.
  void KeepFailedCopies(bool keep) { m_keepFailedCopies = keep; }
  void ShortenCopies(bool shorten) { m_shortenCopies = shorten; }

  // Lets the n-th operation of that kind from now on (from 1) fail, once; each kind has a countdown of its own.
  void FailAt(Op op, int n, uint32_t win32 = my::kErrorDiskFull) { m_faults[op] = {n, win32}; }

  // Crashes at the n-th changing operation from now on: it is half done where it can be, files that were
  // written and not flushed lose their second half, and every later operation throws CCrash.
  void CrashAt(int n) { m_crashIn = n; }

  void ClearFaults();           // the machine is up again, too
  bool Failed() const;          // whether a failure that was asked for has happened
  int Count(Op op) const;       // operations so far
  std::vector<std::wstring> Log() const;  // "copy C:\a -> C:\b", also of failing operations

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& pattern) override;
  my::PathKind Kind(const std::wstring& path) override;
  uint64_t FileSize(const std::wstring& path) override;
  void CreateFolders(const std::wstring& path) override;
  void Copy(const std::wstring& from, const std::wstring& to) override;
  void Move(const std::wstring& from, const std::wstring& to) override;
  void MoveOver(const std::wstring& from, const std::wstring& to) override;
  void RemoveFile(const std::wstring& path) override;
  void RemoveFolder(const std::wstring& path) override;
  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring& path) override;
  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) override;
  std::wstring TemporaryFolder() override;

 private:
  struct CEntry {
    std::wstring path;
    std::string content;
    my::CFileTime time;
    uint32_t attributes = 0;
    bool unflushed = false;

    bool IsFolder() const { return (attributes & my::kAttributeFolder) != 0; }
  };
  using CEntryPtr = std::shared_ptr<CEntry>;
  struct CFault {
    int left;
    uint32_t win32;
  };
  class CStep;
  class CFindInMemory;
  class CNewFileInMemory;

  CStep Begin(Op op, std::vector<std::wstring> paths);
  CEntryPtr Lookup(const std::wstring& path) const;
  bool IsFolder(const std::wstring& path) const;
  bool HasParent(const std::wstring& path) const;
  CEntryPtr Insert(const std::wstring& path, uint32_t attributes);
  std::vector<std::wstring> MissingFolders(const std::wstring& path) const;
  void Rename(CStep& step, bool over);

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
