#include "engine/folder_entries.h"

#include "document/filter.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr std::wstring_view kPattern = L"*.*";
constexpr size_t kPatternLimit = 260;

bool IsFolder(const my::CFindData& entry) {
  return (entry.attributes & my::kAttributeFolder) != 0;
}

}  // namespace

bool IsTooLong(const CListedSource& source, std::wstring_view folder) {
  return my::JoinPath(my::JoinPath(source.path, folder), kPattern).size() >= kPatternLimit;
}

bool IsSubfolder(const my::CFindData& entry) {
  return IsFolder(entry) && entry.name != L"." && entry.name != L"..";
}

CFoundEntries::CFoundEntries(const CListedSource& source, std::wstring_view folder)
    : m_source(source),
      m_find(source.files.Find(my::JoinPath(source.path, folder))),
      m_path(folder),
      m_folderLength(folder.size()) {}

bool CFoundEntries::Next(my::CFindData& entry) {
  if (!m_find->Next(m_entry)) return false;
  entry = m_entry;
  return true;
}

const std::wstring& CFoundEntries::Path() {
  m_path.resize(m_folderLength);
  m_path += m_entry.name;
  if (IsFolder(m_entry)) m_path += my::kSeparator;
  return m_path;
}

const CFilterItem* CFoundEntries::FilterItem() {
  return m_source.filter.Items().empty() ? nullptr : m_source.filter.Find(Path(), m_scratch);
}

CReadEntries::CReadEntries(const CListedSource& source, const std::wstring& folder,
                           std::unique_ptr<CFoundEntries>& found, std::vector<std::wstring>& subfolders) {
  try {
    if (!found) found = std::make_unique<CFoundEntries>(source, folder);
    Read(source, *found, subfolders);
  } catch (...) {
    m_failure = std::current_exception();
  }
  if (!m_isContinued) found.reset();
}

void CReadEntries::Read(const CListedSource& source, CFoundEntries& found,
                        std::vector<std::wstring>& subfolders) {
  while (m_entries.size() < kPortion) {
    m_step = Step::Next;
    my::CFindData data;
    if (!found.Next(data)) return;
    m_entries.push_back(
        {data.lastWriteTime, data.size, data.attributes, static_cast<uint32_t>(data.name.size()), nullptr});
    m_names += data.name;
    m_step = Step::Filter;
    const CFilterItem* const item = found.FilterItem();
    m_entries.back().item = item;
    if (!IsSubfolder(data) || (item && item->IsExclude())) continue;
    const std::wstring& path = found.Path();
    if (!IsTooLong(source, path)) subfolders.push_back(path);
  }
  m_isContinued = true;
}

void CReadEntries::CheckOpened() const {
  if (m_failure && m_step == Step::Open) std::rethrow_exception(m_failure);
}

bool CReadEntries::Next(my::CFindData& entry) {
  if (m_next == m_entries.size()) {
    if (m_failure) std::rethrow_exception(m_failure);
    return false;
  }
  const CEntry& read = m_entries[m_next++];
  const auto name = std::wstring_view(m_names).substr(m_nextName, read.nameLength);
  m_nextName += read.nameLength;
  entry = {name, read.lastWriteTime, read.size, read.attributes};
  return true;
}

const CFilterItem* CReadEntries::FilterItem() {
  if (m_failure && m_step == Step::Filter && m_next == m_entries.size()) std::rethrow_exception(m_failure);
  return m_entries[m_next - 1].item;
}

}  // namespace qlm
