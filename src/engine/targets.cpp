#include "engine/targets.h"

#include <algorithm>

#include "document/filter.h"

namespace qlm {

bool CTarget::IsExcluded() const {
  return m_item && m_item->IsExclude();
}

const CTarget& CTargets::Add(std::wstring_view relativePath, const my::CFindData& found,
                             const CFilterItem* item) {
  return m_targets.emplace_back(Store(relativePath), found, item);
}

std::wstring_view CTargets::Store(std::wstring_view text) {
  constexpr size_t kBlock = size_t{32} * 1024;
  if (text.size() > m_blockLeft) {
    m_blockLeft = std::max(kBlock, text.size());
    m_blocks.emplace_back(new wchar_t[m_blockLeft]);
    m_blockNext = m_blocks.back().get();
  }
  wchar_t* const stored = m_blockNext;
  std::copy(text.begin(), text.end(), stored);
  m_blockNext += text.size();
  m_blockLeft -= text.size();
  return {stored, text.size()};
}

CTargetCounts CountTargets(const CTargets& targets) {
  CTargetCounts counts;
  for (const CTarget& target : targets) {
    if (target.IsCountedFile()) {
      ++counts.counted;
      counts.bytes += target.Size();
    }
    if (target.IsExcluded()) ++counts.excluded;
    if (target.IsFolder() && !target.IsExcluded()) ++counts.folders;
  }
  return counts;
}

const CTarget* NewestTarget(const CTargets& targets) {
  const CTarget* newest = nullptr;
  my::CFileTime time;
  for (const CTarget& target : targets) {
    if (!target.IsCountedFile() || target.LastWriteTime() <= time) continue;
    newest = &target;
    time = target.LastWriteTime();
  }
  return newest;
}

my::CFileTime NewestWriteTime(const CTargets& targets) {
  const CTarget* const newest = NewestTarget(targets);
  return newest ? newest->LastWriteTime() : my::CFileTime();
}

}  // namespace qlm
