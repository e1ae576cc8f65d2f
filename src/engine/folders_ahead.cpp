#include "engine/folders_ahead.h"

#include <stdexcept>
#include <utility>

namespace qlm {

CFoldersAhead::CFoldersAhead(const CListedSource& source, size_t limit) : m_source(source), m_limit(limit) {
  m_folders.emplace_back();
}

std::optional<CFoldersAhead::CPlace> CFoldersAhead::BeginRead() {
  for (CPlace place = m_folders.begin(); place != m_folders.end(); ++place) {
    if (place->state == CFolder::State::Waiting) {
      place->state = CFolder::State::Reading;
      ++m_begun;
      return place;
    }
    if (m_begun >= m_limit) break;
  }
  return {};
}

void CFoldersAhead::Read(CFolder& folder) const {
  folder.entries = std::make_unique<CReadEntries>(m_source, folder.path, folder.found, folder.subfolders);
}

// The rest of a folder comes after the subfolders of the part that has been read.
void CFoldersAhead::EndRead(CPlace folder) {
  const CPlace next = std::next(folder);
  for (std::wstring& path : folder->subfolders) m_folders.emplace(next)->path = std::move(path);
  if (folder->found) {
    const CPlace rest = m_folders.emplace(next);
    rest->path = folder->path;
    rest->found = std::move(folder->found);
  }
  folder->state = CFolder::State::Read;
}

std::unique_ptr<IFolderEntries> CFoldersAhead::Take(const std::wstring& path) {
  if (m_folders.empty() || m_folders.front().path != path)
    throw std::logic_error("the folders are not in listing order");
  if (m_folders.front().state != CFolder::State::Read) return nullptr;
  std::unique_ptr<CReadEntries> entries = std::move(m_folders.front().entries);
  m_folders.pop_front();
  --m_begun;
  entries->CheckOpened();
  return entries;
}

}  // namespace qlm
