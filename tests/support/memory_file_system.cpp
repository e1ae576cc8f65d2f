#include "support/memory_file_system.h"

#include <algorithm>

#include "resource.h"
#include "support/paths.h"
#include "support/strings.h"

namespace test {
namespace {

// Both in the order of Op.
constexpr const wchar_t* kOpNames[] = {
    L"find",           L"next",  L"kind", L"size",      L"read",   L"temporary folder",
    L"create folders", L"copy",  L"move", L"move over", L"remove", L"create",
    L"write",          L"flush", L"close"};
constexpr uint32_t kMessages[] = {0,
                                  0,
                                  0,
                                  IDS_READ_FILE_FAILED,
                                  IDS_READ_FILE_FAILED,
                                  IDS_TEMP_PATH_FAILED,
                                  IDS_CREATE_FOLDER_FAILED,
                                  IDS_COPY_FILE_FAILED,
                                  IDS_MOVE_FILE_FAILED,
                                  IDS_MOVE_FILE_FAILED,
                                  IDS_DELETE_FAILED,
                                  IDS_CREATE_FILE_FAILED,
                                  IDS_WRITE_FILE_FAILED,
                                  IDS_WRITE_FILE_FAILED,
                                  IDS_WRITE_FILE_FAILED};

constexpr uint32_t kErrorSharingViolation = 32;

bool IsRoot(std::wstring_view path) {
  return path.size() <= 3 && path.size() >= 2 && path[1] == L':';
}

std::wstring Normal(std::wstring path) {
  std::replace(path.begin(), path.end(), L'/', L'\\');
  while (path.size() > 3 && path.back() == L'\\') path.pop_back();
  return path;
}

bool IsWithin(std::wstring_view path, std::wstring_view folder) {
  return my::EqualNoCase(path.substr(0, folder.size()), folder) &&
         (path.size() == folder.size() || path[folder.size()] == L'\\');
}

}  // namespace

struct CMemoryFileSystem::CEntry {
  bool IsFolder() const { return (attributes & my::kAttributeFolder) != 0; }

  std::wstring path;
  std::string content;
  my::CFileTime time;
  uint32_t attributes = 0;
  bool unflushed = false;
  bool open = false;  // for writing: it then can be neither renamed nor removed
};

// An operation at work: holds the disk, and knows how the operation has to fail.
struct CMemoryFileSystem::CStep {
  bool Broken() const { return crash || win32 != 0; }
  size_t Done(size_t whole) const { return Broken() ? whole / 2 : whole; }

  void RefuseIf(bool condition, uint32_t code) {
    if (!condition) return;
    win32 = code;
    End();
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
  std::vector<std::wstring> paths;
  uint32_t messageId;
  bool crash = false;
  uint32_t win32 = 0;
};

struct CMemoryFileSystem::CFindInMemory : my::IFindFiles {
  CFindInMemory(CMemoryFileSystem& owner, std::vector<CEntryPtr> found)
      : disk(owner), entries(std::move(found)) {}

  Result Next(my::CFindData& data) override {
    const CStep step = disk.Begin(Op::NEXT, {});
    if (step.Broken()) return Result::FAILED;
    if (next == entries.size()) return Result::END;
    const CEntry& entry = *entries[next++];
    name = my::LastComponent(entry.path);
    data = {name, entry.time, entry.content.size(), entry.attributes};
    return Result::ENTRY;
  }

  CMemoryFileSystem& disk;
  std::vector<CEntryPtr> entries;
  size_t next = 0;
  std::wstring name;
};

struct CMemoryFileSystem::CFileInMemory : my::INewFile {
  CFileInMemory(CMemoryFileSystem& owner, CEntryPtr created) : disk(owner), entry(std::move(created)) {
    entry->open = true;
  }
  ~CFileInMemory() override { entry->open = false; }

  void Write(std::string_view bytes) override {
    const CStep step = disk.Begin(Op::WRITE, {entry->path});
    entry->content += bytes.substr(0, step.Done(bytes.size()));
    entry->unflushed = true;
    step.End();
  }

  void Flush() override {
    disk.Begin(Op::FLUSH, {entry->path}).End();
    entry->unflushed = false;
  }

  void Close() override {
    entry->open = false;
    disk.Begin(Op::CLOSE, {entry->path}).End();
  }

  CMemoryFileSystem& disk;
  CEntryPtr entry;
};

void CMemoryFileSystem::AddFile(const std::wstring& path, std::string content, my::CFileTime time,
                                uint32_t attributes) {
  AddFolder(std::wstring(my::ParentPath(path)));
  const std::lock_guard hold(*m_lock);
  CEntryPtr entry = Lookup(Normal(path));
  if (!entry) entry = Insert(Normal(path), attributes);
  entry->content = std::move(content);
  entry->time = time;
}

void CMemoryFileSystem::AddFolder(const std::wstring& path) {
  const std::lock_guard hold(*m_lock);
  for (const std::wstring& folder : MissingFolders(Normal(path))) Insert(folder, my::kAttributeFolder);
}

void CMemoryFileSystem::Remove(const std::wstring& path) {
  const std::lock_guard hold(*m_lock);
  std::erase_if(m_entries, [&](const CEntryPtr& entry) { return IsWithin(entry->path, Normal(path)); });
}

std::map<std::wstring, std::string> CMemoryFileSystem::Files() const {
  const std::lock_guard hold(*m_lock);
  std::map<std::wstring, std::string> files;
  for (const CEntryPtr& entry : m_entries) {
    if (!entry->IsFolder()) files[entry->path] = entry->content;
  }
  return files;
}

void CMemoryFileSystem::ClearFaults() {
  m_faults.clear();
  m_crashIn = 0;
  m_crashed = m_failed = false;
}

std::vector<std::wstring> CMemoryFileSystem::Log() const {
  const std::lock_guard hold(*m_lock);
  return m_log;
}

CMemoryFileSystem::CStep CMemoryFileSystem::Begin(Op op, const std::vector<std::wstring>& paths) {
  const auto index = static_cast<size_t>(op);
  CStep step{std::unique_lock(*m_lock), paths, kMessages[index]};
  if (m_crashed) throw CCrash();
  m_log.emplace_back(kOpNames[index]);
  for (const std::wstring& path : paths) m_log.back() += (&path == paths.data() ? L" " : L" -> ") + path;
  ++m_counts[op];
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

CMemoryFileSystem::CEntryPtr CMemoryFileSystem::Lookup(const std::wstring& path) const {
  const auto isIt = [&path](const CEntryPtr& entry) { return my::EqualNoCase(entry->path, path); };
  const auto found = std::find_if(m_entries.begin(), m_entries.end(), isIt);
  return found == m_entries.end() ? nullptr : *found;
}

bool CMemoryFileSystem::IsFolder(const std::wstring& path) const {
  const CEntryPtr entry = Lookup(path);
  return IsRoot(path) || (entry && entry->IsFolder());
}

bool CMemoryFileSystem::HasParent(const std::wstring& path) const {
  return IsFolder(std::wstring(my::ParentPath(path)));
}

CMemoryFileSystem::CEntryPtr CMemoryFileSystem::Insert(const std::wstring& path, uint32_t attributes) {
  return m_entries.emplace_back(std::make_shared<CEntry>(CEntry{path, {}, m_now, attributes}));
}

std::vector<std::wstring> CMemoryFileSystem::MissingFolders(const std::wstring& path) const {
  std::vector<std::wstring> missing;
  for (std::wstring folder = path; !folder.empty() && !IsFolder(folder); folder = my::ParentPath(folder)) {
    missing.insert(missing.begin(), folder);
  }
  return missing;
}

std::unique_ptr<my::IFindFiles> CMemoryFileSystem::Find(const std::wstring& pattern) {
  const CStep step = Begin(Op::FIND, {pattern});
  const std::wstring folder(my::ParentPath(pattern));
  if (step.Broken() || !IsFolder(folder)) return nullptr;
  std::vector<CEntryPtr> found;
  for (const wchar_t* name : {L".", L".."}) {
    found.push_back(std::make_shared<CEntry>(CEntry{name, {}, m_now, my::kAttributeFolder}));
  }
  for (const CEntryPtr& entry : m_entries) {
    if (my::EqualNoCase(my::ParentPath(entry->path), folder)) found.push_back(entry);
  }
  return std::make_unique<CFindInMemory>(*this, std::move(found));
}

my::PathKind CMemoryFileSystem::Kind(const std::wstring& path) {
  const CStep step = Begin(Op::KIND, {path});
  if (step.Broken()) return my::PathKind::NONE;
  if (IsFolder(Normal(path))) return my::PathKind::FOLDER;
  return Lookup(Normal(path)) ? my::PathKind::FILE : my::PathKind::NONE;
}

uint64_t CMemoryFileSystem::FileSize(const std::wstring& path) {
  CStep step = Begin(Op::SIZE, {path});
  const CEntryPtr entry = Lookup(Normal(path));
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.End();
  return entry->content.size();
}

void CMemoryFileSystem::CreateFolders(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FOLDERS, {path});
  std::vector<std::wstring> missing = MissingFolders(Normal(path));
  for (const std::wstring& folder : missing) {
    const bool last = folder == missing.back();
    step.RefuseIf(Lookup(folder) != nullptr, last ? my::kErrorAlreadyExists : my::kErrorPathNotFound);
  }
  missing.resize(step.Done(missing.size()));
  for (const std::wstring& folder : missing) Insert(folder, my::kAttributeFolder);
  step.End();
}

void CMemoryFileSystem::Copy(const std::wstring& from, const std::wstring& to) {
  CStep step = Begin(Op::COPY, {from, to});
  const CEntryPtr source = Lookup(Normal(from));
  step.RefuseIf(!source, my::kErrorFileNotFound);
  step.RefuseIf(source->IsFolder(), my::kErrorAccessDenied);
  step.RefuseIf(!HasParent(to), my::kErrorPathNotFound);
  step.RefuseIf(Lookup(Normal(to)) != nullptr, my::kErrorFileExists);
  if (!step.Broken() || m_keepFailedCopies) {
    const size_t whole = source->content.size();
    const CEntryPtr copy = Insert(Normal(to), source->attributes);
    copy->content = source->content.substr(0, m_shortenCopies ? whole / 2 : step.Done(whole));
    copy->time = source->time;
  }
  step.End();
}

void CMemoryFileSystem::Rename(Op op, const std::wstring& from, const std::wstring& to) {
  CStep step = Begin(op, {from, to});
  const CEntryPtr target = Lookup(Normal(to));
  const CEntryPtr source = Lookup(Normal(from));
  step.RefuseIf(!source, my::kErrorFileNotFound);
  step.RefuseIf(source->open || (target && target->open), kErrorSharingViolation);
  step.RefuseIf(!HasParent(to), my::kErrorPathNotFound);
  step.RefuseIf(target && op == Op::MOVE, my::kErrorAlreadyExists);
  step.RefuseIf(target && target->IsFolder(), my::kErrorAccessDenied);
  step.End();
  std::erase(m_entries, target);
  for (const CEntryPtr& entry : m_entries) {
    if (IsWithin(entry->path, Normal(from))) entry->path.replace(0, Normal(from).size(), Normal(to));
  }
}

void CMemoryFileSystem::Delete(const std::wstring& path, bool folder) {
  CStep step = Begin(Op::REMOVE, {path});
  const CEntryPtr entry = Lookup(Normal(path));
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.RefuseIf(entry->IsFolder() && !folder, my::kErrorAccessDenied);
  step.RefuseIf(entry->open, kErrorSharingViolation);
  std::vector<CEntryPtr> doomed;
  for (const CEntryPtr& other : m_entries) {
    if (IsWithin(other->path, Normal(path))) doomed.insert(doomed.begin(), other);  // children first
  }
  doomed.resize(step.Done(doomed.size()));
  for (const CEntryPtr& other : doomed) std::erase(m_entries, other);
  step.End();
}

std::unique_ptr<my::INewFile> CMemoryFileSystem::CreateNewFile(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FILE, {path});
  step.RefuseIf(!HasParent(path), my::kErrorPathNotFound);
  step.RefuseIf(Lookup(Normal(path)) != nullptr, my::kErrorFileExists);
  step.End();
  return std::make_unique<CFileInMemory>(*this, Insert(Normal(path), 0));
}

std::string CMemoryFileSystem::ReadFile(const std::wstring& path, uint64_t most, uint64_t offset) {
  CStep step = Begin(Op::READ, {path});
  step.End();
  step.messageId = IDS_OPEN_FILE_FAILED;
  const CEntryPtr entry = Lookup(Normal(path));
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.RefuseIf(entry->IsFolder(), my::kErrorAccessDenied);
  return entry->content.substr(std::min<uint64_t>(offset, entry->content.size()), most);
}

std::wstring CMemoryFileSystem::TemporaryFolder() {
  Begin(Op::TEMP_FOLDER, {}).End();
  return m_temporaryFolder;
}

}  // namespace test
