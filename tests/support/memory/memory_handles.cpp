// Listings, held folders and files open for writing.
#include "support/memory_file_system.h"
#include "text_ids.h"

namespace test {

struct CMemoryFileSystem::CFind : my::IFindFiles {
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

std::unique_ptr<my::IFindFiles> CMemoryFileSystem::Find(const std::wstring& path) {
  CStep step = Begin(Op::FIND, L"find", IDS_LIST_FOLDER_FAILED, {path});
  const std::wstring pattern = my::JoinPath(path, L"*");
  const std::wstring folder = m_disk.Resolve(my::ParentPath(pattern));
  step.RefuseIf(!m_disk.IsFolder(folder), my::kErrorPathNotFound);
  const CEntryPtr self = m_disk.Lookup(folder);
  step.RefuseIf(self && self->IsLink(), my::kErrorAccessDenied);
  step.End();
  std::vector<CEntryPtr> found;
  for (const wchar_t* name : {L".", L".."}) found.push_back(std::make_shared<CEntry>(CEntry{name, true}));
  for (const CEntryPtr& entry : m_disk.Entries()) {
    if (my::EqualNoCase(my::ParentPath(entry->path), folder)) found.push_back(entry);
  }
  return std::make_unique<CFind>(*this, std::move(found));
}

struct CMemoryFileSystem::CHeldFolder : my::IHeldFolder {
  CHeldFolder(CMemoryFileSystem& owner, CEntryPtr held) : disk(owner), entry(std::move(held)) {
    ++entry->holds;
  }
  ~CHeldFolder() override {
    const auto hold = disk.Lock();
    --entry->holds;
  }

  CMemoryFileSystem& disk;
  CEntryPtr entry;
};

std::unique_ptr<my::IHeldFolder> CMemoryFileSystem::HoldFolder(const std::wstring& path) {
  const CStep step = Begin(Op::HOLD, L"hold", IDS_PATH_UNREADABLE, {path});
  if (step.crash) throw CCrash();
  const CEntryPtr entry = step.Broken() ? nullptr : m_disk.Lookup(m_disk.Located(path));
  if (!entry || !entry->folder || m_holding == Holding::Refused) return nullptr;
  return std::make_unique<CHeldFolder>(*this, entry);
}

struct CMemoryFileSystem::CNewFile : my::INewFile {
  CNewFile(CMemoryFileSystem& owner, CEntryPtr made, my::FileLife howLong)
      : disk(owner), entry(std::move(made)), life(howLong) {
    entry->open = true;
  }
  ~CNewFile() override {
    const auto hold = disk.Lock();
    entry->open = false;
    if (life == my::FileLife::UntilClosed) disk.m_disk.Erase(entry);
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
    disk.m_disk.Flush(*entry, my::FlushDepth::Device);
  }

  void Close() override {
    const CStep step = Begin(Op::CLOSE, L"close");
    entry->open = false;
    step.End();
  }

  CStep Begin(Op op, const wchar_t* name) const {
    return disk.Begin(op, name, IDS_WRITE_FILE_FAILED, {entry->path});
  }

  CMemoryFileSystem& disk;
  CEntryPtr entry;
  my::FileLife life;
};

std::unique_ptr<my::INewFile> CMemoryFileSystem::CreateNewFile(const std::wstring& path, my::FileLife life) {
  CStep step = Begin(Op::CREATE_FILE, L"create", IDS_CREATE_FILE_FAILED, {path});
  step.RefuseIf(!m_disk.IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
  if (m_disk.Lookup(path)) return nullptr;
  step.End();
  const CEntryPtr entry = m_disk.Insert(path, false);
  entry->renameRefusals = m_renameRefusals;
  return std::make_unique<CNewFile>(*this, entry, life);
}

std::unique_ptr<my::INewFile> CMemoryFileSystem::OpenToAppend(const std::wstring& path) {
  CStep step = Begin(Op::APPEND, L"append", IDS_OPEN_FILE_FAILED, {path});
  step.RefuseIf(!m_disk.IsFolder(my::ParentPath(path)), my::kErrorPathNotFound);
  CEntryPtr entry = m_disk.Lookup(path);
  step.RefuseIf(entry && entry->folder, my::kErrorAccessDenied);
  step.RefuseIf(entry && entry->open, my::kErrorSharingViolation);
  step.End();
  if (!entry) entry = m_disk.Insert(path, false);
  return std::make_unique<CNewFile>(*this, entry, my::FileLife::Kept);
}

}  // namespace test
