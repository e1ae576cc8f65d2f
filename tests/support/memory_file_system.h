// A file system in memory that is stricter than a real one: names are case-insensitive, trailing dots and
// spaces are dropped, devices exist in every folder, ":" opens a stream, drives can be missing, a new file or
// folder refuses its first rename, and a crash loses all unflushed bytes. Tests can make operations fail, and
// change the disk between them. Any thread may call the port, and may add and remove files.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace test {

// Operations from CREATE_FOLDERS on change the disk. REMOVE is for files and folders.
enum class Op {
  FIND,
  NEXT,
  KIND,
  IS_LINK,
  HOLD,
  SIZE,
  READ,
  FREE_SPACE,
  TEMP_FOLDER,
  CREATE_FOLDERS,
  COPY,
  FLUSH_FILE,
  MOVE,
  MOVE_OVER,
  REMOVE,
  CREATE_FILE,
  APPEND,
  WRITE,
  FLUSH,
  CLOSE
};

// A crash with power loss: operations in exception handlers fail too.
struct CCrash {};

// Has the drives C: and D: and the folder for temporary files. Assigning {} clears it.
class CMemoryFileSystem : public my::IFileSystem {
 public:
  CMemoryFileSystem() { AddFolder(m_temporaryFolder); }

  // Adds a file and its missing parents. An existing file gets the new content and keeps its place in the
  // order.
  void AddFile(const std::wstring& path, std::string content, my::CFileTime time = {}) {
    AddFolder(std::wstring(my::ParentPath(path)));
    const std::lock_guard hold(*m_lock);
    CEntryPtr entry = Lookup(path);
    if (!entry) entry = Insert(path, false);
    entry->content = std::move(content);
    entry->time = time;
  }

  // Adds a file written by another program, not flushed yet.
  void AddUnflushedFile(const std::wstring& path, std::string content) {
    AddFile(path, std::move(content));
    const std::lock_guard hold(*m_lock);
    const CEntryPtr entry = Lookup(path);
    entry->cache = Cache::SYSTEM;
    entry->renameRefusals = m_renameRefusals;
  }

  // Adds a symbolic link, listed with size 0 and opened as its target, a file or folder. Without a target it
  // is a junction that denies listing.
  void AddLink(const std::wstring& path, std::wstring target = {}, my::CFileTime time = {}) {
    AddFolder(std::wstring(my::ParentPath(path)));
    const std::lock_guard hold(*m_lock);
    m_hasLinks = true;
    const CEntryPtr entry = Insert(path, target.empty() || IsFolder(target));
    entry->attributes |= my::kAttributeLink;
    entry->linkTarget = std::move(target);
    entry->time = time;
  }

  void AddFolder(const std::wstring& path) {
    const std::lock_guard hold(*m_lock);
    for (const std::wstring& folder : MissingFolders(path)) Insert(folder, true);
  }

  void Remove(const std::wstring& path) {  // with everything below it
    const std::lock_guard hold(*m_lock);
    std::erase_if(m_entries, [&path](const CEntryPtr& entry) { return entry->IsWithin(path); });
  }

  // Sets whether folders can be held and whether the system keeps others from moving held ones. Not every
  // system does both.
  enum class Holding { Enforced, NotEnforced, Refused };
  void SetHolding(Holding holding) { m_holding = holding; }

  // What another program does: removes a file or folder, and puts a link in its place if there is a target.
  // Returns false for a folder that is held, or has a held one below it.
  bool Replace(const std::wstring& path, const std::wstring& target = {}) {
    if (IsHeld(path)) return false;
    Remove(path);
    if (!target.empty()) AddLink(path, target, {});
    return true;
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

  // Sets whether copies report success with half of the content. A failed copy always leaves half of it.
  void ShortenCopies(bool shorten) { m_shortenCopies = shorten; }

  // Sets how often a new file, or a folder that contains one, refuses to be renamed; initially 1.
  void RefuseRenames(int count) { m_renameRefusals = count; }

  // Runs `work` once, before the next operation of this kind: what another program does in between.
  void Meanwhile(Op op, std::function<void()> work) { m_meanwhile[op] = std::move(work); }

  // Runs `work` once, before the n-th operation of any kind from now.
  void MeanwhileAt(int n, std::function<void()> work) {
    m_workIn = n;
    m_work = std::move(work);
  }
  bool IsMeanwhileDone() const { return m_workIn <= 0; }

  // Makes the n-th operation of this kind from now fail (n >= 1). Each kind has its own countdown.
  void FailAt(Op op, int n, uint32_t win32 = my::kErrorDiskFull) { m_faults[op] = {n, win32}; }

  // Makes every operation of this kind on this path fail.
  void FailOn(Op op, const std::wstring& path) { m_badPaths.emplace_back(op, path); }

  // Crashes at the n-th changing operation from now: a rename is completed, other operations are half done
  // where possible, files not flushed to the device lose their second half, and every later operation throws
  // CCrash.
  void CrashAt(int n) { m_crashIn = n; }

  void ClearFaults() {  // also ends a crash
    m_faults.clear();
    m_badPaths.clear();
    m_crashIn = 0;
    m_crashed = m_failed = false;
  }

  bool Failed() const { return m_failed; }
  const std::vector<std::wstring>& Log() const { return m_log; }  // "copy C:\a -> C:\b"

  // The current folder changes with every call, as the system's open dialog might do.
  std::wstring FullPath(const std::wstring& path) override {
    const bool full = path.starts_with(L"\\\\") || path.substr(1, 2) == L":\\";
    return full ? path : my::JoinPath(std::exchange(m_currentFolder, L"D:\\elsewhere"), path);
  }

  std::unique_ptr<my::IFindFiles> Find(const std::wstring& path) override {
    CStep step = Begin(Op::FIND, L"find", IDS_LIST_FOLDER_FAILED, {path});
    const std::wstring pattern = my::JoinPath(path, L"*");
    const std::wstring folder = Resolve(my::ParentPath(pattern));
    step.RefuseIf(!IsFolder(folder), my::kErrorPathNotFound);
    const CEntryPtr self = Lookup(folder);
    step.RefuseIf(self && self->IsLink(), my::kErrorAccessDenied);
    step.End();
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
    const CStep step = Begin(Op::KIND, L"kind", IDS_PATH_UNREADABLE, {path});
    step.End();
    if (IsFolder(path)) return my::PathKind::Folder;
    return IsDevice(path) || Lookup(path) ? my::PathKind::File : my::PathKind::None;
  }

  bool IsLink(const std::wstring& path) override {
    CStep step = Begin(Op::IS_LINK, L"is link", IDS_PATH_UNREADABLE, {path});
    const CEntryPtr entry = step.Broken() ? nullptr : Lookup(Located(path));
    return entry && entry->IsLink();
  }

  std::unique_ptr<my::IHeldFolder> HoldFolder(const std::wstring& path) override {
    const CStep step = Begin(Op::HOLD, L"hold", IDS_PATH_UNREADABLE, {path});
    if (step.crash) throw CCrash();
    const CEntryPtr entry = step.Broken() ? nullptr : Lookup(Located(path));
    if (!entry || !entry->folder || m_holding == Holding::Refused) return nullptr;
    return std::make_unique<CHeldFolder>(*this, entry);
  }

  uint64_t FileSize(const std::wstring& path) override {
    CStep step = Begin(Op::SIZE, L"size", IDS_READ_FILE_FAILED, {path});
    const CEntryPtr entry = Open(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.End();
    return entry->content.size();
  }

  void CreateFolders(const std::wstring& path) override {
    CStep step = Begin(Op::CREATE_FOLDERS, L"create folders", IDS_CREATE_FOLDER_FAILED, {path});
    std::vector<std::wstring> missing = MissingFolders(path);
    for (const std::wstring& folder : missing) {
      step.RefuseIf(Lookup(folder) != nullptr, my::kErrorAlreadyExists);
      step.RefuseIf(folder.size() <= 2, my::kErrorPathNotFound);  // a drive
    }
    missing.resize(step.Done(missing.size()));
    for (const std::wstring& folder : missing) Insert(folder, true);
    step.End();
  }

  bool CreateNewFolder(const std::wstring& path) override {
    CStep step = Begin(Op::CREATE_FOLDERS, L"create folder", IDS_CREATE_FOLDER_FAILED, {path});
    step.RefuseIf(!IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
    if (IsFolder(path) || IsDevice(path) || Lookup(path)) return false;
    if (!step.Broken()) Insert(path, true)->renameRefusals = m_renameRefusals;
    step.End();
    return true;
  }

  void Copy(const std::wstring& from, const std::wstring& to, const my::CCopyProgress& progress,
            my::LinkCopy link) override {
    CStep step = Begin(Op::COPY, L"copy", IDS_COPY_FILE_FAILED, {from, to});
    const CEntryPtr source = link == my::LinkCopy::Link ? Lookup(Located(from)) : Open(from);
    step.RefuseIf(!source, my::kErrorFileNotFound);
    step.RefuseIf(source->folder, my::kErrorAccessDenied);
    step.RefuseIf(!IsFolder(my::ParentPath(to)), my::kErrorPathNotFound);
    step.RefuseIf(Lookup(to) != nullptr, my::kErrorFileExists);
    const size_t whole = source->content.size();
    const CEntryPtr copy = Insert(to, false);
    copy->attributes = source->attributes;
    copy->linkTarget = source->linkTarget;
    copy->content = source->content.substr(0, m_shortenCopies ? whole / 2 : step.Done(whole));
    copy->time = source->time;
    copy->cache = Cache::SYSTEM;
    for (const size_t copied : {whole / 2, copy->content.size()}) {
      if (progress) progress(copied);
    }
    step.End();
  }

  uint64_t FlushFile(const std::wstring& path, my::FlushDepth depth) override {
    const bool device = depth == my::FlushDepth::Device;
    CStep step = Begin(Op::FLUSH_FILE, device ? L"flush device" : L"flush", IDS_WRITE_FILE_FAILED, {path});
    const CEntryPtr entry = Lookup(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.End();
    FlushEntry(*entry, depth);
    return entry->content.size();
  }

  void Move(const std::wstring& from, const std::wstring& to) override {
    CStep step = Begin(Op::MOVE, L"move", IDS_MOVE_FILE_FAILED, {from, to});
    step.RefuseIf(IsDevice(to) || Lookup(to) != nullptr, my::kErrorAlreadyExists);
    Rename(step, from, to);
  }

  void MoveOver(const std::wstring& from, const std::wstring& to) override {
    CStep step = Begin(Op::MOVE_OVER, L"move over", IDS_MOVE_FILE_FAILED, {from, to});
    Rename(step, from, to);
  }

  void RemoveFile(const std::wstring& path) override { Delete(path, false); }
  void RemoveFolder(const std::wstring& path) override { Delete(path, true); }

  std::unique_ptr<my::INewFile> CreateNewFile(const std::wstring& path, my::FileLife life) override {
    CStep step = Begin(Op::CREATE_FILE, L"create", IDS_CREATE_FILE_FAILED, {path});
    step.RefuseIf(!IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
    if (Lookup(path)) return nullptr;
    step.End();
    const CEntryPtr entry = Insert(path, false);
    entry->renameRefusals = m_renameRefusals;
    return std::make_unique<CNewFile>(*this, entry, life);
  }

  std::unique_ptr<my::INewFile> OpenToAppend(const std::wstring& path) override {
    CStep step = Begin(Op::APPEND, L"append", IDS_OPEN_FILE_FAILED, {path});
    step.RefuseIf(!IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
    CEntryPtr entry = Lookup(path);
    step.RefuseIf(entry && entry->folder, my::kErrorAccessDenied);
    step.RefuseIf(entry && entry->open, my::kErrorSharingViolation);
    step.End();
    if (!entry) entry = Insert(path, false);
    return std::make_unique<CNewFile>(*this, entry, my::FileLife::Kept);
  }

  std::string ReadFile(const std::wstring& path, uint64_t most, uint64_t offset = 0) override {
    CStep step = Begin(Op::READ, L"read", IDS_READ_FILE_FAILED, {path});
    step.End();
    step.messageId = IDS_OPEN_FILE_FAILED;
    const CEntryPtr entry = Open(path);
    step.RefuseIf(!entry, my::kErrorFileNotFound);
    step.RefuseIf(entry->folder, my::kErrorAccessDenied);
    return entry->content.substr(std::min<uint64_t>(offset, entry->content.size()), most);
  }

  // The free bytes of a drive; a drive that is not set has 1 TB.
  void SetFreeSpace(wchar_t drive, uint64_t bytes) { m_freeSpace[drive] = bytes; }

  uint64_t FreeSpace(const std::wstring& folder) override {
    CStep step = Begin(Op::FREE_SPACE, L"free space", IDS_PATH_UNREADABLE, {folder});
    step.RefuseIf(!IsFolder(folder), my::kErrorPathNotFound);
    step.End();
    const auto found = m_freeSpace.find(folder[0]);
    return found == m_freeSpace.end() ? uint64_t{1} << 40 : found->second;
  }

  my::DiskKind Disk(const std::wstring&) override { return my::DiskKind::Unknown; }

  std::wstring TemporaryFolder() override {
    Begin(Op::TEMP_FOLDER, L"temporary folder", IDS_TEMP_PATH_FAILED, {}).End();
    return m_temporaryFolder;
  }

 private:
  // Where the newest bytes of a file are.
  enum class Cache { NONE, DEVICE, SYSTEM };

  struct CEntry {
    bool IsLink() const { return (attributes & my::kAttributeLink) != 0; }

    bool IsWithin(std::wstring_view other) const {
      return my::EqualNoCase(std::wstring_view(path).substr(0, other.size()), other) &&
             (path.size() == other.size() || path[other.size()] == my::kSeparator);
    }

    std::wstring path;
    bool folder = false;
    my::CFileTime time;
    std::string content;
    uint32_t attributes = folder ? my::kAttributeFolder : 0;
    std::wstring linkTarget = {};
    Cache cache = Cache::NONE;
    size_t flushedSize = 0;  // bytes that a crash keeps; used unless `cache` is NONE
    bool open = false;       // for writing; can be neither renamed nor removed
    int holds = 0;
    int renameRefusals = 0;
  };
  using CEntryPtr = std::shared_ptr<CEntry>;

  // A running operation: holds the lock and decides whether it fails.
  struct CStep {
    bool Broken() const { return crash || win32 != 0; }
    size_t Done(size_t whole) const { return Broken() ? whole / 2 : whole; }

    void RefuseIf(bool condition, uint32_t code) {
      if (condition) win32 = code;
      if (condition) End();
    }

    // Throws if the operation has to fail.
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

    bool Next(my::CFindData& data) override {
      const CStep step = disk.Begin(Op::NEXT, L"next", IDS_LIST_FOLDER_FAILED, {L""});
      step.End();
      if (next == entries.size()) return false;
      const CEntry& entry = *entries[next++];
      name = my::LastComponent(entry.path);
      data = {name, entry.time, entry.content.size(), entry.attributes};
      return true;
    }

    CMemoryFileSystem& disk;
    std::vector<CEntryPtr> entries;
    size_t next = 0;
    std::wstring name;
  };

  struct CHeldFolder : my::IHeldFolder {
    CHeldFolder(CMemoryFileSystem& owner, CEntryPtr held) : disk(owner), entry(std::move(held)) {
      ++entry->holds;
    }
    ~CHeldFolder() override {
      const std::lock_guard hold(*disk.m_lock);
      --entry->holds;
    }

    CMemoryFileSystem& disk;
    CEntryPtr entry;
  };

  struct CNewFile : my::INewFile {
    CNewFile(CMemoryFileSystem& owner, CEntryPtr made, my::FileLife howLong)
        : disk(owner), entry(std::move(made)), life(howLong) {
      entry->open = true;
    }
    ~CNewFile() override {
      const std::lock_guard hold(*disk.m_lock);
      entry->open = false;
      if (life == my::FileLife::UntilClosed) std::erase(disk.m_entries, entry);
    }

    void Write(std::string_view bytes) override {
      const CStep step = Begin(Op::WRITE, L"write");
      if (entry->cache == Cache::NONE) entry->flushedSize = entry->content.size();
      entry->content += bytes.substr(0, step.Done(bytes.size()));
      entry->cache = Cache::SYSTEM;
      step.End();
    }

    void Flush() override {
      const CStep step = Begin(Op::FLUSH, L"flush");
      step.End();
      disk.FlushEntry(*entry, my::FlushDepth::Device);
    }

    void Close() override {
      const CStep step = Begin(Op::CLOSE, L"close");
      entry->open = false;
      step.End();
    }

    CStep Begin(Op op, const wchar_t* name) {
      return disk.Begin(op, name, IDS_WRITE_FILE_FAILED, {entry->path});
    }

    CMemoryFileSystem& disk;
    CEntryPtr entry;
    my::FileLife life;
  };

  struct CFault {
    int left;
    uint32_t win32;
  };

  std::function<void()> TakeMeanwhile(Op op) {
    const std::lock_guard hold(*m_lock);
    return --m_workIn == 0 ? std::exchange(m_work, nullptr) : std::exchange(m_meanwhile[op], nullptr);
  }

  bool IsHeld(const std::wstring& path) const {
    const std::lock_guard hold(*m_lock);
    const auto keeps = [&](const CEntryPtr& entry) { return entry->holds > 0 && entry->IsWithin(path); };
    return m_holding == Holding::Enforced && std::ranges::any_of(m_entries, keeps);
  }

  CStep Begin(Op op, const wchar_t* name, uint32_t messageId, const std::vector<std::wstring>& paths) {
    if (const auto work = TakeMeanwhile(op)) work();
    CStep step{std::unique_lock(*m_lock), messageId, paths};
    if (m_crashed) throw CCrash();
    m_log.emplace_back(name);
    for (const std::wstring& path : paths) m_log.back() += (&path == paths.data() ? L" " : L" -> ") + path;
    if (op >= Op::CREATE_FOLDERS && --m_crashIn == 0) {
      step.crash = m_crashed = true;
      for (const CEntryPtr& entry : m_entries) {
        if (entry->cache == Cache::NONE) continue;
        entry->content.resize(entry->flushedSize + (entry->content.size() - entry->flushedSize) / 2);
      }
    }
    const auto fault = m_faults.find(op);
    if (fault != m_faults.end() && --fault->second.left == 0) {
      m_failed = true;
      step.win32 = fault->second.win32;
    }
    const bool bad = !paths.empty() && std::ranges::count(m_badPaths, std::pair(op, paths[0])) != 0;
    if (bad) step.win32 = my::kErrorDiskFull;
    return step;
  }

  void FlushEntry(CEntry& entry, my::FlushDepth depth) {
    if (entry.cache == Cache::SYSTEM) entry.cache = Cache::DEVICE;
    if (depth != my::FlushDepth::Device) return;
    for (const CEntryPtr& other : m_entries) {
      if (other->cache == Cache::DEVICE) other->cache = Cache::NONE;
    }
  }

  static bool IsDevice(std::wstring_view path) {
    const std::wstring_view name = my::LastComponent(path);
    const std::wstring_view stem = my::TrimEnd(name.substr(0, name.find_first_of(L".:")), L" ");
    return my::EqualNoCase(stem, L"nul") || my::EqualNoCase(stem, L"com1");
  }

  // Returns the path with all its links followed.
  std::wstring Resolve(std::wstring_view path) const {
    if (!m_hasLinks) return std::wstring(path);
    const std::wstring located = Located(path);
    const CEntryPtr entry = Lookup(located);
    return entry && !entry->linkTarget.empty() ? Resolve(entry->linkTarget) : located;
  }

  // Returns the path with the links of its parents followed.
  std::wstring Located(std::wstring_view path) const {
    const std::wstring_view parent = my::ParentPath(path);
    if (parent.empty() || !m_hasLinks) return std::wstring(path);
    return my::JoinPath(Resolve(parent), my::LastComponent(path));
  }

  // Returns the file, or the target of a link.
  CEntryPtr Open(std::wstring_view path) const { return Lookup(Resolve(path)); }

  // Returns the path as the system reads it: without trailing dots and spaces, and without a stream name.
  static std::wstring_view Meant(std::wstring_view path) {
    path = my::TrimEnd(path, L". ");
    const size_t colon = path.find(L':', std::min<size_t>(path.size(), 2));
    return colon == path.npos ? path : path.substr(0, colon);
  }

  CEntryPtr Lookup(std::wstring_view given) const {
    std::wstring_view path = my::TrimEnd(Meant(given), L"\\");
    const auto isIt = [path](const CEntryPtr& entry) { return my::EqualNoCase(entry->path, path); };
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), isIt);
    return found == m_entries.end() ? nullptr : *found;
  }

  bool IsFolder(std::wstring_view path) const {
    const CEntryPtr entry = Lookup(path);
    const bool drive = my::EqualNoCase(path, L"C:\\") || my::EqualNoCase(path, L"D:\\");
    return drive || (entry && entry->folder);
  }

  CEntryPtr Insert(const std::wstring& path, bool folder) {
    return m_entries.emplace_back(
        std::make_shared<CEntry>(CEntry{std::wstring(Meant(path)), folder, {}, {}}));
  }

  // Returns the missing folders of the path, outermost first.
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
    step.RefuseIf(source->open || (target && target->open), my::kErrorSharingViolation);
    const uint32_t refusal = source->folder ? my::kErrorAccessDenied : my::kErrorSharingViolation;
    if (!step.Broken()) step.RefuseIf(source->renameRefusals-- > 0, refusal);
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
    step.RefuseIf(entry->open, my::kErrorSharingViolation);
    const auto isWithin = [&path](const CEntryPtr& other) { return other->IsWithin(path); };
    auto left = step.Done(std::count_if(m_entries.begin(), m_entries.end(), isWithin));
    for (auto at = m_entries.end(); left > 0;) {  // children first
      if (isWithin(*--at)) at = m_entries.erase(at), --left;
    }
    step.End();
  }

  std::unique_ptr<std::mutex> m_lock = std::make_unique<std::mutex>();
  std::vector<CEntryPtr> m_entries;  // in order of creation
  std::wstring m_temporaryFolder = L"C:\\Temp\\";
  std::wstring m_currentFolder = L"C:\\";
  bool m_shortenCopies = false;
  int m_renameRefusals = 1;
  std::map<wchar_t, uint64_t> m_freeSpace;
  std::map<Op, std::function<void()>> m_meanwhile;
  std::map<Op, CFault> m_faults;
  std::vector<std::pair<Op, std::wstring>> m_badPaths;
  std::vector<std::wstring> m_log;
  Holding m_holding = Holding::Enforced;
  bool m_hasLinks = false;
  int m_workIn = 0;
  std::function<void()> m_work;
  int m_crashIn = 0;
  bool m_crashed = false;
  bool m_failed = false;
};

}  // namespace test
