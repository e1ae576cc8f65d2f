#include "support/memory_file_system.h"

#include <algorithm>

#include "resource.h"
#include "support/paths.h"
#include "support/strings.h"

namespace test {
namespace {

struct COpTraits {
  const wchar_t* name;
  uint32_t messageId;
};

// In the order of Op.
constexpr COpTraits kOps[] = {{L"find", 0},
                              {L"next", 0},
                              {L"kind", 0},
                              {L"size", IDS_READ_FILE_FAILED},
                              {L"read", IDS_READ_FILE_FAILED},
                              {L"temporary folder", IDS_TEMP_PATH_FAILED},
                              {L"create folders", IDS_CREATE_FOLDER_FAILED},
                              {L"copy", IDS_COPY_FILE_FAILED},
                              {L"move", IDS_MOVE_FILE_FAILED},
                              {L"move over", IDS_MOVE_FILE_FAILED},
                              {L"remove", IDS_DELETE_FAILED},
                              {L"create", IDS_CREATE_FILE_FAILED},
                              {L"write", IDS_WRITE_FILE_FAILED},
                              {L"flush", IDS_WRITE_FILE_FAILED},
                              {L"close", IDS_WRITE_FILE_FAILED}};

bool IsRoot(std::wstring_view path) { return path.size() <= 3 && path.size() >= 2 && path[1] == L':'; }

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

// An operation at work: holds the disk, and knows how the operation has to fail.
class CMemoryFileSystem::CStep {
 public:
  CStep(std::mutex& lock, uint32_t messageId, std::vector<std::wstring> paths)
      : m_hold(lock), m_messageId(messageId), m_paths(std::move(paths)) {}

  std::wstring Path(size_t index) const { return Normal(m_paths[index]); }
  void Break(bool crash, uint32_t win32) { m_crash = crash, m_win32 = win32; }
  bool Broken() const { return m_crash || m_win32 != 0; }
  size_t Done(size_t whole) const { return Broken() ? whole / 2 : whole; }

  void RefuseIf(bool condition, uint32_t win32, uint32_t messageId = 0) {
    if (!condition) return;
    if (messageId != 0) m_messageId = messageId;
    m_win32 = win32;
    End();
  }

  // Fails if the operation has to.
  void End() const {
    if (m_crash) throw CCrash();
    if (m_win32 == 0) return;
    std::vector<my::CMsgArg> args;
    if (!m_paths.empty()) args.emplace_back(my::CSystemError::FromWin32(m_win32));
    args.insert(args.end(), m_paths.begin(), m_paths.end());
    throw my::CException(m_messageId, std::move(args));
  }

 private:
  std::unique_lock<std::mutex> m_hold;
  uint32_t m_messageId;
  std::vector<std::wstring> m_paths;
  bool m_crash = false;
  uint32_t m_win32 = 0;
};

class CMemoryFileSystem::CFindInMemory : public my::IFindFiles {
 public:
  CFindInMemory(CMemoryFileSystem& disk, std::vector<CEntryPtr> entries)
      : m_disk(disk), m_entries(std::move(entries)) {}

  Result Next(my::CFindData& found) override {
    const CStep step = m_disk.Begin(Op::NEXT, {});
    if (step.Broken()) return Result::FAILED;
    if (m_next == m_entries.size()) return Result::END;
    const CEntry& entry = *m_entries[m_next++];
    m_name = my::LastComponent(entry.path);
    found = {m_name, entry.time, entry.content.size(), entry.attributes};
    return Result::ENTRY;
  }

 private:
  CMemoryFileSystem& m_disk;
  std::vector<CEntryPtr> m_entries;
  size_t m_next = 0;
  std::wstring m_name;
};

class CMemoryFileSystem::CNewFileInMemory : public my::INewFile {
 public:
  CNewFileInMemory(CMemoryFileSystem& disk, CEntryPtr entry) : m_disk(disk), m_entry(std::move(entry)) {}

  void Write(std::string_view bytes) override {
    const CStep step = m_disk.Begin(Op::WRITE, {m_entry->path});
    m_entry->content += bytes.substr(0, step.Done(bytes.size()));
    m_entry->unflushed = true;
    step.End();
  }

  void Flush() override {
    const CStep step = m_disk.Begin(Op::FLUSH, {m_entry->path});
    step.End();
    m_entry->unflushed = false;
  }

  void Close() override { m_disk.Begin(Op::CLOSE, {m_entry->path}).End(); }

 private:
  CMemoryFileSystem& m_disk;
  CEntryPtr m_entry;
};

CMemoryFileSystem::CMemoryFileSystem() { AddFolder(m_temporaryFolder); }

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

bool CMemoryFileSystem::Failed() const { return m_failed; }

int CMemoryFileSystem::Count(Op op) const {
  const auto found = m_counts.find(op);
  return found == m_counts.end() ? 0 : found->second;
}

std::vector<std::wstring> CMemoryFileSystem::Log() const {
  const std::lock_guard hold(*m_lock);
  return m_log;
}

CMemoryFileSystem::CStep CMemoryFileSystem::Begin(Op op, std::vector<std::wstring> paths) {
  const COpTraits& traits = kOps[static_cast<size_t>(op)];
  std::wstring line = traits.name;
  for (const std::wstring& path : paths) line += (&path == paths.data() ? L" " : L" -> ") + path;
  CStep step(*m_lock, traits.messageId, std::move(paths));
  if (m_crashed) throw CCrash();
  m_log.push_back(std::move(line));
  ++m_counts[op];
  if (op >= Op::CREATE_FOLDERS && m_crashIn > 0 && --m_crashIn == 0) {
    m_crashed = true;
    for (const CEntryPtr& entry : m_entries) {
      if (entry->unflushed) entry->content.resize(entry->content.size() / 2);
    }
    step.Break(true, 0);
  }
  const auto fault = m_faults.find(op);
  if (fault != m_faults.end() && --fault->second.left == 0) {
    m_failed = true;
    step.Break(m_crashed, fault->second.win32);
  }
  return step;
}

CMemoryFileSystem::CEntryPtr CMemoryFileSystem::Lookup(const std::wstring& path) const {
  const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const CEntryPtr& entry) {
    return my::EqualNoCase(entry->path, path);
  });
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
  std::vector<CEntryPtr> entries;
  for (const wchar_t* name : {L".", L".."}) {
    entries.push_back(std::make_shared<CEntry>(CEntry{name, {}, m_now, my::kAttributeFolder}));
  }
  for (const CEntryPtr& entry : m_entries) {
    if (my::EqualNoCase(my::ParentPath(entry->path), folder)) entries.push_back(entry);
  }
  return std::make_unique<CFindInMemory>(*this, std::move(entries));
}

my::PathKind CMemoryFileSystem::Kind(const std::wstring& path) {
  const CStep step = Begin(Op::KIND, {path});
  if (step.Broken()) return my::PathKind::NONE;
  if (IsFolder(step.Path(0))) return my::PathKind::FOLDER;
  return Lookup(step.Path(0)) ? my::PathKind::FILE : my::PathKind::NONE;
}

uint64_t CMemoryFileSystem::FileSize(const std::wstring& path) {
  CStep step = Begin(Op::SIZE, {path});
  step.End();
  const CEntryPtr entry = Lookup(step.Path(0));
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  return entry->content.size();
}

void CMemoryFileSystem::CreateFolders(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FOLDERS, {path});
  std::vector<std::wstring> missing = MissingFolders(step.Path(0));
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
  const CEntryPtr source = Lookup(step.Path(0));
  step.RefuseIf(!source, my::kErrorFileNotFound);
  step.RefuseIf(source->IsFolder(), my::kErrorAccessDenied);
  step.RefuseIf(!HasParent(step.Path(1)), my::kErrorPathNotFound);
  step.RefuseIf(Lookup(step.Path(1)) != nullptr, my::kErrorFileExists);
  if (!step.Broken() || m_keepFailedCopies) {
    const bool half = step.Broken() || m_shortenCopies;
    const CEntryPtr copy = Insert(step.Path(1), source->attributes);
    copy->content = source->content.substr(0, half ? source->content.size() / 2 : source->content.npos);
    copy->time = source->time;
  }
  step.End();
}

void CMemoryFileSystem::Rename(CStep& step, bool over) {
  step.End();
  const std::wstring from = step.Path(0);
  const std::wstring to = step.Path(1);
  const CEntryPtr target = Lookup(to);
  step.RefuseIf(!Lookup(from), my::kErrorFileNotFound);
  step.RefuseIf(!HasParent(to), my::kErrorPathNotFound);
  step.RefuseIf(target && !over, my::kErrorAlreadyExists);
  step.RefuseIf(target && target->IsFolder(), my::kErrorAccessDenied);
  std::erase(m_entries, target);
  for (const CEntryPtr& entry : m_entries) {
    if (IsWithin(entry->path, from)) entry->path = to + entry->path.substr(from.size());
  }
}

void CMemoryFileSystem::Move(const std::wstring& from, const std::wstring& to) {
  CStep step = Begin(Op::MOVE, {from, to});
  Rename(step, false);
}

void CMemoryFileSystem::MoveOver(const std::wstring& from, const std::wstring& to) {
  CStep step = Begin(Op::MOVE_OVER, {from, to});
  Rename(step, true);
}

void CMemoryFileSystem::RemoveFile(const std::wstring& path) {
  CStep step = Begin(Op::REMOVE, {path});
  step.End();
  const CEntryPtr entry = Lookup(step.Path(0));
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.RefuseIf(entry->IsFolder(), my::kErrorAccessDenied);
  std::erase(m_entries, entry);
}

void CMemoryFileSystem::RemoveFolder(const std::wstring& path) {
  CStep step = Begin(Op::REMOVE, {path});
  step.RefuseIf(!Lookup(step.Path(0)), my::kErrorFileNotFound);
  std::vector<CEntryPtr> doomed;
  for (const CEntryPtr& entry : m_entries) {
    if (IsWithin(entry->path, step.Path(0))) doomed.insert(doomed.begin(), entry);  // children first
  }
  doomed.resize(step.Done(doomed.size()));
  for (const CEntryPtr& entry : doomed) std::erase(m_entries, entry);
  step.End();
}

std::unique_ptr<my::INewFile> CMemoryFileSystem::CreateNewFile(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FILE, {path});
  step.End();
  step.RefuseIf(!HasParent(step.Path(0)), my::kErrorPathNotFound);
  step.RefuseIf(Lookup(step.Path(0)) != nullptr, my::kErrorFileExists);
  return std::make_unique<CNewFileInMemory>(*this, Insert(step.Path(0), 0));
}

std::string CMemoryFileSystem::ReadFile(const std::wstring& path, uint64_t most, uint64_t offset) {
  CStep step = Begin(Op::READ, {path});
  step.End();
  const CEntryPtr entry = Lookup(step.Path(0));
  step.RefuseIf(!entry, my::kErrorFileNotFound, IDS_OPEN_FILE_FAILED);
  step.RefuseIf(entry->IsFolder(), my::kErrorAccessDenied, IDS_OPEN_FILE_FAILED);
  return entry->content.substr(std::min<uint64_t>(offset, entry->content.size()), most);
}

std::wstring CMemoryFileSystem::TemporaryFolder() {
  Begin(Op::TEMP_FOLDER, {}).End();
  return m_temporaryFolder;
}

}  // namespace test
