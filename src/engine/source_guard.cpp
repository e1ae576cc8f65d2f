#include "engine/source_guard.h"

#include <utility>

#include "engine/targets.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {

void CSourceGuard::Take(const CTarget& file) {
  EnterFolder(file.Parent());
  ++m_guarded.at(file.Parent()).users;
}

void CSourceGuard::Release(const CTarget& file) {
  ReleaseFolder(file.Parent());
}

void CSourceGuard::End() {
  EnterFolder(kNone);
}

// The next folder is taken before the last one is released, so that common parents stay guarded.
void CSourceGuard::EnterFolder(size_t folder) {
  if (folder == m_current) return;
  if (folder != kNone) TakeFolder(folder);
  const size_t left = std::exchange(m_current, folder);
  if (left != kNone) ReleaseFolder(left);
}

// Parents come first: while they are held, the path cannot lead to another folder.
void CSourceGuard::TakeFolder(size_t folder) {
  const auto known = m_guarded.find(folder);
  if (known != m_guarded.end()) {
    ++known->second.users;
    return;
  }
  if (folder != CTargets::kSource) TakeFolder(m_targets[folder].Parent());
  CGuarded guarded{nullptr, 1};
  if (m_hold == FolderHold::Yes) guarded.held = m_files.HoldFolder(PathOf(folder));
  Check(folder);
  m_guarded.emplace(folder, std::move(guarded));
}

// Where a folder was not held, it may have been replaced after it was taken.
void CSourceGuard::ReleaseFolder(size_t folder) {
  const auto guarded = m_guarded.find(folder);
  if (--guarded->second.users > 0) return;
  if (m_hold == FolderHold::Yes) Check(folder);
  m_guarded.erase(guarded);
  if (folder != CTargets::kSource) ReleaseFolder(m_targets[folder].Parent());
}

void CSourceGuard::Check(size_t folder) const {
  const bool wasLink = folder == CTargets::kSource ? m_targets.IsSourceLink() : m_targets[folder].IsLink();
  if (wasLink) return;
  const std::wstring path = PathOf(folder);
  if (m_files.IsLink(path)) throw my::CException(IDS_SOURCE_BECAME_LINK, {path});
}

std::wstring CSourceGuard::PathOf(size_t folder) const {
  if (folder == CTargets::kSource) return FolderPath(m_source);
  return FolderPath(my::JoinPath(m_source, m_targets[folder].RelativePath()));
}

std::wstring FolderPath(std::wstring path) {
  while (!path.empty() && my::IsSeparator(path.back())) path.pop_back();
  return path.ends_with(L':') ? path + my::kSeparator : path;
}

void CheckFolders(my::IFileSystem& files, const std::wstring& source, const CTargets& targets) {
  CSourceGuard guard(files, source, targets, FolderHold::No);
  for (const CTarget target : targets) {
    if (!target.IsCountedFile()) continue;
    guard.Take(target);
    guard.Release(target);
  }
}

}  // namespace qlm
