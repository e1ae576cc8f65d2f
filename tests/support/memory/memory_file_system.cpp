#include "support/memory_file_system.h"
#include "text_ids.h"

namespace test {

void CMemoryFileSystem::AddFile(const std::wstring& path, std::string content, my::CFileTime time) {
  AddFolder(std::wstring(my::ParentPath(path)));
  const auto hold = Lock();
  CEntryPtr entry = m_disk.Lookup(path);
  if (!entry) entry = m_disk.Insert(path, false);
  entry->content = std::move(content);
  entry->time = time;
}

void CMemoryFileSystem::AddUnflushedFile(const std::wstring& path, std::string content) {
  AddFile(path, std::move(content));
  const auto hold = Lock();
  const CEntryPtr entry = m_disk.Lookup(path);
  entry->cache = Cache::SYSTEM;
  entry->renameRefusals = m_renameRefusals;
}

void CMemoryFileSystem::AddLink(const std::wstring& path, const std::wstring& target, my::CFileTime time) {
  AddFolder(std::wstring(my::ParentPath(path)));
  const auto hold = Lock();
  m_disk.InsertLink(path, target)->time = time;
}

void CMemoryFileSystem::AddFolder(const std::wstring& path) {
  const auto hold = Lock();
  for (const std::wstring& folder : m_disk.MissingFolders(path)) m_disk.Insert(folder, true);
}

void CMemoryFileSystem::Remove(const std::wstring& path) {
  const auto hold = Lock();
  m_disk.Remove(path);
}

bool CMemoryFileSystem::Replace(const std::wstring& path, const std::wstring& target) {
  {
    const auto hold = Lock();
    const auto keeps = [&](const CEntryPtr& entry) { return entry->holds > 0 && entry->IsWithin(path); };
    if (m_holding == Holding::Enforced && std::ranges::any_of(m_disk.Entries(), keeps)) return false;
    m_disk.Remove(path);
  }
  if (!target.empty()) AddLink(path, target);
  return true;
}

std::map<std::wstring, std::string> CMemoryFileSystem::Files() const {
  const auto hold = Lock();
  std::map<std::wstring, std::string> files;
  for (const CEntryPtr& entry : m_disk.Entries()) {
    if (!entry->folder) files[entry->path] = entry->content;
  }
  return files;
}

std::wstring CMemoryFileSystem::FullPath(const std::wstring& path) {
  const bool full = path.starts_with(L"\\\\") || path.substr(1, 2) == L":\\";
  return full ? path : my::JoinPath(std::exchange(m_currentFolder, L"D:\\elsewhere"), path);
}

my::PathKind CMemoryFileSystem::Kind(const std::wstring& path) {
  const CStep step = Begin(Op::KIND, L"kind", IDS_PATH_UNREADABLE, {path});
  step.End();
  if (m_disk.IsFolder(path)) return my::PathKind::Folder;
  return CMemoryDisk::IsDevice(path) || m_disk.Lookup(path) ? my::PathKind::File : my::PathKind::None;
}

bool CMemoryFileSystem::IsLink(const std::wstring& path) {
  const CStep step = Begin(Op::IS_LINK, L"is link", IDS_PATH_UNREADABLE, {path});
  const CEntryPtr entry = step.Broken() ? nullptr : m_disk.Lookup(m_disk.Located(path));
  return entry && entry->IsLink();
}

uint64_t CMemoryFileSystem::FileSize(const std::wstring& path) {
  CStep step = Begin(Op::SIZE, L"size", IDS_READ_FILE_FAILED, {path});
  const CEntryPtr entry = m_disk.Open(path);
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.End();
  return entry->content.size();
}

void CMemoryFileSystem::CreateFolders(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FOLDERS, L"create folders", IDS_CREATE_FOLDER_FAILED, {path});
  std::vector<std::wstring> missing = m_disk.MissingFolders(path);
  for (const std::wstring& folder : missing) {
    step.RefuseIf(m_disk.Lookup(folder) != nullptr, my::kErrorAlreadyExists);
    step.RefuseIf(folder.size() <= 2, my::kErrorPathNotFound);  // a drive
  }
  missing.resize(step.Done(missing.size()));
  for (const std::wstring& folder : missing) m_disk.Insert(folder, true);
  step.End();
}

bool CMemoryFileSystem::CreateNewFolder(const std::wstring& path) {
  CStep step = Begin(Op::CREATE_FOLDERS, L"create folder", IDS_CREATE_FOLDER_FAILED, {path});
  step.RefuseIf(!m_disk.IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
  if (m_disk.IsFolder(path) || CMemoryDisk::IsDevice(path) || m_disk.Lookup(path)) return false;
  if (!step.Broken()) m_disk.Insert(path, true)->renameRefusals = m_renameRefusals;
  step.End();
  return true;
}

void CMemoryFileSystem::Copy(const std::wstring& from, const std::wstring& to,
                             const my::CCopyProgress& progress, my::LinkCopy link) {
  CStep step = Begin(Op::COPY, L"copy", IDS_COPY_FILE_FAILED, {from, to});
  const CEntryPtr source =
      link == my::LinkCopy::Link ? m_disk.Lookup(m_disk.Located(from)) : m_disk.Open(from);
  step.RefuseIf(!source, my::kErrorFileNotFound);
  step.RefuseIf(source->folder, my::kErrorAccessDenied);
  step.RefuseIf(!m_disk.IsFolder(my::ParentPath(to)), my::kErrorPathNotFound);
  step.RefuseIf(m_disk.Lookup(to) != nullptr, my::kErrorFileExists);
  const size_t whole = source->content.size();
  const CEntryPtr copy = m_disk.Insert(to, false);
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

uint64_t CMemoryFileSystem::FlushFile(const std::wstring& path, my::FlushDepth depth) {
  const bool device = depth == my::FlushDepth::Device;
  CStep step = Begin(Op::FLUSH_FILE, device ? L"flush device" : L"flush", IDS_WRITE_FILE_FAILED, {path});
  const CEntryPtr entry = m_disk.Lookup(path);
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.End();
  m_disk.Flush(*entry, depth);
  return entry->content.size();
}

void CMemoryFileSystem::Move(const std::wstring& from, const std::wstring& to) {
  CStep step = Begin(Op::MOVE, L"move", IDS_MOVE_FILE_FAILED, {from, to});
  step.RefuseIf(CMemoryDisk::IsDevice(to) || m_disk.Lookup(to) != nullptr, my::kErrorAlreadyExists);
  Rename(std::move(step), from, to);
}

void CMemoryFileSystem::MoveOver(const std::wstring& from, const std::wstring& to) {
  Rename(Begin(Op::MOVE_OVER, L"move over", IDS_MOVE_FILE_FAILED, {from, to}), from, to);
}

std::string CMemoryFileSystem::ReadFile(const std::wstring& path, uint64_t most, uint64_t offset) {
  CStep step = Begin(Op::READ, L"read", IDS_READ_FILE_FAILED, {path});
  step.End();
  step.messageId = IDS_OPEN_FILE_FAILED;
  const CEntryPtr entry = m_disk.Open(path);
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.RefuseIf(entry->folder, my::kErrorAccessDenied);
  return entry->content.substr(std::min<uint64_t>(offset, entry->content.size()), most);
}

uint64_t CMemoryFileSystem::FreeSpace(const std::wstring& folder) {
  CStep step = Begin(Op::FREE_SPACE, L"free space", IDS_PATH_UNREADABLE, {folder});
  step.RefuseIf(!m_disk.IsFolder(folder), my::kErrorPathNotFound);
  step.End();
  const auto found = m_freeSpace.find(folder[0]);
  return found == m_freeSpace.end() ? uint64_t{1} << 40 : found->second;
}

std::wstring CMemoryFileSystem::TemporaryFolder() {
  Begin(Op::TEMP_FOLDER, L"temporary folder", IDS_TEMP_PATH_FAILED, {}).End();
  return m_temporaryFolder;
}

CStep CMemoryFileSystem::Begin(Op op, const wchar_t* name, uint32_t messageId,
                               const std::vector<std::wstring>& paths) {
  CStep step = CFaults::Begin(op, name, messageId, paths);
  if (step.crash) m_disk.CutPower();
  return step;
}

void CMemoryFileSystem::Rename(CStep step, const std::wstring& from, const std::wstring& to) {
  const CEntryPtr source = m_disk.Lookup(from);
  const CEntryPtr target = m_disk.Lookup(to);
  step.RefuseIf(!source, my::kErrorFileNotFound);
  step.RefuseIf(!m_disk.IsFolder(my::ParentPath(to)), my::kErrorPathNotFound);
  step.RefuseIf(target && target->folder, my::kErrorAccessDenied);
  step.RefuseIf(source->open || (target && target->open), my::kErrorSharingViolation);
  const uint32_t refusal = source->folder ? my::kErrorAccessDenied : my::kErrorSharingViolation;
  if (!step.Broken()) step.RefuseIf(source->renameRefusals-- > 0, refusal);
  if (!step.crash) step.End();
  m_disk.Erase(target);
  m_disk.Rename(from, to);
  step.End();
}

void CMemoryFileSystem::Delete(const std::wstring& path, bool folder) {
  CStep step = Begin(Op::REMOVE, L"remove", IDS_DELETE_FAILED, {path});
  const CEntryPtr entry = m_disk.Lookup(path);
  step.RefuseIf(!entry, my::kErrorFileNotFound);
  step.RefuseIf(entry->folder && !folder, my::kErrorAccessDenied);
  step.RefuseIf(entry->open, my::kErrorSharingViolation);
  m_disk.Remove(path, step.Broken());
  step.End();
}

}  // namespace test
