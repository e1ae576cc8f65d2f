// A disk in memory for the tests: case-insensitive, with failures and crashes where a test wants them.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "resource.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"

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
  void AddFile(const std::wstring& path, std::string content, my::CFileTime time = {}) {
    AddFolder(std::wstring(my::ParentPath(path)));
    const std::lock_guard hold(*m_lock);
    CEntryPtr entry = Lookup(path);
    if (!entry) entry = Insert(path, false);
    entry->content = std::move(content);
    entry->time = time;
  }

  void AddFolder(const std::wstring& path) {
    const std::lock_guard hold(*m_lock);
    for (const std::wstring& folder : MissingFolders(path)) Insert(folder, true);
  }

  void Remove(const std::wstring& path) {  // with all below it
    const std::lock_guard hold(*m_lock);
    std::erase_if(m_entries, [&path](const CEntryPtr& entry) { return entry->IsWithin(path); });
  }

  std::map<std::wstring, std::string> Files() const {
    const std::lock_guard hold(*m_lock);
    std::map<std::wstring, std::string> files;
    for (const CEntryPtr& entry : m_entries) {
      if (!entry->folder) files[entry->path] = entry->content;
    }
    return files;
  }

  void SetTemporaryFolder(std::wstring path) { m_temporaryFolder = std::move(path); }

  // Whether copies succeed with half of the content. A failed copy leaves half of it in any case.
  void ShortenCopies(bool shorten) { m_shortenCopies = shorten; }

  // Lets the n-th operation of that kind from now on fail, n from 1; each kind has a countdown of its own.
  void FailAt(Op op, int n, uint32_t win32 = my::kErrorDiskFull) { m_faults[op] = {n, win32}; }

  // Crashes at the n-th changing operation from now on: a rename is done, others are half done where they can
  // be, files that were written and not flushed lose their second half, and every later operation throws
  // CCrash.
  void CrashAt(int n) { m_crashIn = n; }

  void ClearFaults() {  // ends a crash, too
    m_faults.clear();
    m_crashIn = 0;
    m_crashed = m_failed = false;
  }

  bool Failed() const { return m_failed; }
  const std::vector<std::wstring>& Log() const { return m_log; }  // "copy C:\a -> C:\b"

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& pattern) override {
    const CStep step = Begin(Op::FIND, L"find", 0, {pattern});
    const std::wstring_view folder = my::ParentPath(pattern);
    if (step.Broken() || !IsFolder(folder)) return nullptr;
    std::vector<CEntryPtr> found;
    for (const wchar_t* name : {L".", L".."}) {
      found.push_back(std::make_shared<CEntry>(CEntry{name, true, {}, {}}));
    }
    for (const CEntryPtr& entry : m_entries) {
      if (my::EqualNoCase(my::ParentPath(entry->path), folder)) found.push_back(entry);
    }
    return std::make_unique<CFind>(*this, std::move(found));
  }

  my::PathKind Kind(const std::wstring& path) override {
    const CStep step = Begin(Op::KIND, L"kind", 0, {path});
    if (!step.Broken() && IsFolder(path)) return my::PathKind::FOLDER;
    return !step.Broken() && Lookup(path) ? my::PathKind::FILE : my::PathKind::NONE;
  }

  uint64_t FileSize(const std::wstring& path) override {
    CStep step = Begin(Op::SIZE, L"size", IDS_READ_FILE_FAILED, {path});
    const CEntryPtr entry = Lookup(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.End();
    return entry->content.size();
  }

  void CreateFolders(const std::wstring& path) override {
    CStep step = Begin(Op::CREATE_FOLDERS, L"create folders", IDS_CREATE_FOLDER_FAILED, {path});
    std::vector<std::wstring> missing = MissingFolders(path);
    for (const std::wstring& folder : missing)
      step.RefuseIf(Lookup(folder) != nullptr, my::kErrorAlreadyExists);
    missing.resize(step.Done(missing.size()));
    for (const std::wstring& folder : missing) Insert(folder, true);
    step.End();
  }

  void Copy(const std::wstring& from, const std::wstring& to) override {
    CStep step = Begin(Op::COPY, L"copy", IDS_COPY_FILE_FAILED, {from, to});
    const CEntryPtr source = Lookup(from);
    step.RefuseIf(!source, my::kErrorFileNotFound);
    step.RefuseIf(source->folder, my::kErrorAccessDenied);
    step.RefuseIf(!IsFolder(my::ParentPath(to)), my::kErrorPathNotFound);
    step.RefuseIf(Lookup(to) != nullptr, my::kErrorFileExists);
    const size_t whole = source->content.size();
    const CEntryPtr copy = Insert(to, false);
    copy->content = source->content.substr(0, m_shortenCopies ? whole / 2 : step.Done(whole));
    copy->time = source->time;
    step.End();
  }

  void Move(const std::wstring& from, const std::wstring& to) override {
    CStep step = Begin(Op::MOVE, L"move", IDS_MOVE_FILE_FAILED, {from, to});
    step.RefuseIf(Lookup(to) != nullptr, my::kErrorAlreadyExists);
    Rename(step, from, to);
  }

  void MoveOver(const std::wstring& from, const std::wstring& to) override {
    CStep step = Begin(Op::MOVE_OVER, L"move over", IDS_MOVE_FILE_FAILED, {from, to});
    Rename(step, from, to);
  }

  void RemoveFile(const std::wstring& path) override { Delete(path, false); }
  void RemoveFolder(const std::wstring& path) override { Delete(path, true); }

  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring& path) override {
    CStep step = Begin(Op::CREATE_FILE, L"create", IDS_CREATE_FILE_FAILED, {path});
    step.RefuseIf(!IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
    step.RefuseIf(Lookup(path) != nullptr, my::kErrorFileExists);
    step.End();
    return std::make_unique<CNewFile>(*this, Insert(path, false));
  }

  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) override {
    CStep step = Begin(Op::READ, L"read", IDS_READ_FILE_FAILED, {path});
    step.End();
    step.messageId = IDS_OPEN_FILE_FAILED;
    const CEntryPtr entry = Lookup(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.RefuseIf(entry->folder, my::kErrorAccessDenied);
    return entry->content.substr(std::min<uint64_t>(offset, entry->content.size()), most);
  }

  std::wstring TemporaryFolder() override {
    Begin(Op::TEMP_FOLDER, L"temporary folder", IDS_TEMP_PATH_FAILED, {}).End();
    return m_temporaryFolder;
  }

 private:
  struct CEntry {
    bool IsWithin(std::wstring_view other) const {
      return my::EqualNoCase(std::wstring_view(path).substr(0, other.size()), other) &&
             (path.size() == other.size() || path[other.size()] == my::kSeparator);
    }

    std::wstring path;
    bool folder = false;
    my::CFileTime time;
    std::string content;
    bool unflushed = false;
    bool open = false;  // for writing: it can be neither renamed nor removed
  };
  using CEntryPtr = std::shared_ptr<CEntry>;

  // An operation at work: holds the disk, and knows how the operation has to fail.
  struct CStep {
    bool Broken() const { return crash || win32 != 0; }
    size_t Done(size_t whole) const { return Broken() ? whole / 2 : whole; }

    void RefuseIf(bool condition, uint32_t code) {
      if (condition) win32 = code;
      if (condition) End();
    }

    // Fails if the operation has to.
    void End() const {
      if (crash) throw CCrash();
      if (win32 == 0) return;
      std::vector<my::CMsgArg> args(paths.begin(), paths.end());
      if (!args.empty()) args.insert(args.begin(), my::CSystemError::FromWin32(win32));
      throw my::CException(messageId, std::move(args));
    }

    std::unique_lock<std::mutex> hold;
    uint32_t messageId;
    std::vector<std::wstring> paths;
    bool crash = false;
    uint32_t win32 = 0;
  };

  struct CFind : my::IFindFiles {
    CFind(CMemoryFileSystem& owner, std::vector<CEntryPtr> found) : disk(owner), entries(std::move(found)) {}

    Result Next(my::CFindData& data) override {
      const CStep step = disk.Begin(Op::NEXT, L"next", 0, {});
      if (step.Broken()) return Result::FAILED;
      if (next == entries.size()) return Result::END;
      const CEntry& entry = *entries[next++];
      name = my::LastComponent(entry.path);
      data = {name, entry.time, entry.content.size(), entry.folder ? my::kAttributeFolder : 0};
      return Result::ENTRY;
    }

    CMemoryFileSystem& disk;
    std::vector<CEntryPtr> entries;
    size_t next = 0;
    std::wstring name;
  };

  struct CNewFile : my::INewFile {
    CNewFile(CMemoryFileSystem& owner, CEntryPtr made) : disk(owner), entry(std::move(made)) {
      entry->open = true;
    }
    ~CNewFile() override { entry->open = false; }

    void Write(std::string_view bytes) override {
      const CStep step = Begin(Op::WRITE, L"write");
      entry->content += bytes.substr(0, step.Done(bytes.size()));
      entry->unflushed = true;
      step.End();
    }

    void Flush() override {
      Begin(Op::FLUSH, L"flush").End();
      entry->unflushed = false;
    }

    void Close() override {
      entry->open = false;
      Begin(Op::CLOSE, L"close").End();
    }

    CStep Begin(Op op, const wchar_t* name) {
      return disk.Begin(op, name, IDS_WRITE_FILE_FAILED, {entry->path});
    }

    CMemoryFileSystem& disk;
    CEntryPtr entry;
  };

  struct CFault {
    int left;
    uint32_t win32;
  };

  CStep Begin(Op op, const wchar_t* name, uint32_t messageId, const std::vector<std::wstring>& paths) {
    CStep step{std::unique_lock(*m_lock), messageId, paths};
    if (m_crashed) throw CCrash();
    m_log.emplace_back(name);
    for (const std::wstring& path : paths) m_log.back() += (&path == paths.data() ? L" " : L" -> ") + path;
    if (op >= Op::CREATE_FOLDERS && --m_crashIn == 0) {
      step.crash = m_crashed = true;
      for (const CEntryPtr& entry : m_entries) {
        if (entry->unflushed) entry->content.resize(entry->content.size() / 2);
      }
    }
    const auto fault = m_faults.find(op);
    if (fault != m_faults.end() && --fault->second.left == 0) {
      m_failed = true;
      step.win32 = fault->second.win32;
    }
    return step;
  }

  CEntryPtr Lookup(std::wstring_view path) const {
    const auto isIt = [path](const CEntryPtr& entry) { return my::EqualNoCase(entry->path, path); };
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), isIt);
    return found == m_entries.end() ? nullptr : *found;
  }

  bool IsFolder(std::wstring_view path) const {
    const CEntryPtr entry = Lookup(my::TrimEnd(path, L"\\"));
    return (path.size() <= 3 && path.ends_with(L":\\")) || (entry && entry->folder);
  }

  CEntryPtr Insert(const std::wstring& path, bool folder) {
    return m_entries.emplace_back(std::make_shared<CEntry>(CEntry{path, folder, {}, {}}));
  }

  // The folders that the path needs to be one, from the outermost on.
  std::vector<std::wstring> MissingFolders(std::wstring_view path) const {
    std::vector<std::wstring> missing;
    for (; !path.empty() && !IsFolder(path); path = my::ParentPath(path)) {
      missing.insert(missing.begin(), std::wstring(my::TrimEnd(path, L"\\")));
    }
    return missing;
  }

  void Rename(CStep& step, const std::wstring& from, const std::wstring& to) {
    const CEntryPtr source = Lookup(from);
    const CEntryPtr target = Lookup(to);
    step.RefuseIf(!source, my::kErrorFileNotFound);
    step.RefuseIf(!IsFolder(my::ParentPath(to)), my::kErrorPathNotFound);
    step.RefuseIf(target && target->folder, my::kErrorAccessDenied);
    step.RefuseIf(source->open || (target && target->open), kErrorSharingViolation);
    if (!step.crash) step.End();
    std::erase(m_entries, target);
    for (const CEntryPtr& entry : m_entries) {
      if (entry->IsWithin(from)) entry->path.replace(0, from.size(), to);
    }
    step.End();
  }

  void Delete(const std::wstring& path, bool folder) {
    CStep step = Begin(Op::REMOVE, L"remove", IDS_DELETE_FAILED, {path});
    const CEntryPtr entry = Lookup(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.RefuseIf(entry->folder && !folder, my::kErrorAccessDenied);
    step.RefuseIf(entry->open, kErrorSharingViolation);
    const auto isWithin = [&path](const CEntryPtr& other) { return other->IsWithin(path); };
    auto left = step.Done(std::count_if(m_entries.begin(), m_entries.end(), isWithin));
    for (auto at = m_entries.end(); left > 0;) {  // children first
      if (isWithin(*--at)) at = m_entries.erase(at), --left;
    }
    step.End();
  }

  static constexpr uint32_t kErrorSharingViolation = 32;

  std::unique_ptr<std::mutex> m_lock = std::make_unique<std::mutex>();
  std::vector<CEntryPtr> m_entries;  // in the order in which they came
  std::wstring m_temporaryFolder = L"C:\\Temp\\";
  bool m_shortenCopies = false;
  std::map<Op, CFault> m_faults;
  std::vector<std::wstring> m_log;
  int m_crashIn = 0;
  bool m_crashed = false;
  bool m_failed = false;
};

}  // namespace test
