#include "engine/targets.h"

#include <algorithm>
#include <stdexcept>

#include "document/filter.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr size_t kNameBlock = 4096;  // characters
constexpr size_t kLongestName = 511;
constexpr size_t kMostItems = (size_t{1} << 22) - 2;

static_assert(sizeof(CStoredTarget) == 32);

}  // namespace

std::wstring CTarget::RelativePath() const {
  std::wstring path;
  AppendRelativePath(path);
  return path;
}

// Two walks up to the source: the first one measures, the second one writes from the end.
void CTarget::AppendRelativePath(std::wstring& text) const {
  const auto parentOf = [this](const CStoredTarget& entry) {
    return entry.parent == CTargets::kSource ? nullptr : &m_targets->m_targets[entry.parent];
  };
  const bool isFolder = IsFolder();
  size_t length = isFolder ? 1 : 0;
  for (auto* entry = m_stored; entry; entry = parentOf(*entry)) length += entry->nameLength + size_t{1};
  text.resize(text.size() + length - 1);
  wchar_t* end = text.data() + text.size();
  if (isFolder) *--end = my::kSeparator;
  for (auto* entry = m_stored;;) {
    const std::wstring_view name = m_targets->NameOf(*entry);
    end = std::copy_backward(name.begin(), name.end(), end);
    entry = parentOf(*entry);
    if (!entry) return;
    *--end = my::kSeparator;
  }
}

const CFilterItem* CTarget::FilterItem() const {
  const uint32_t number = m_stored->filterItem;
  return number == 0 ? nullptr : m_targets->m_filter->Items()[number - 1].get();
}

size_t CTargets::Add(const my::CFindData& found, size_t parent, const CFilterItem* item) {
  const size_t index = m_targets.size();
  if (found.name.size() > kLongestName || index >= kSource) throw std::length_error("list of targets");
  m_targets.push_back({.lastWriteTime = found.lastWriteTime,
                       .size = found.size,
                       .attributes = found.attributes,
                       .parent = static_cast<uint32_t>(parent),
                       .name = StoreName(found.name),
                       .nameLength = static_cast<uint32_t>(found.name.size() & kLongestName),
                       .filterItem = NumberOf(item),
                       .isExcluded = item && item->IsExclude() ? 1u : 0u});
  return index;
}

// Returns the position of the stored name, which never crosses the end of a block.
uint32_t CTargets::StoreName(std::wstring_view name) {
  if (m_nextName % kNameBlock + name.size() > kNameBlock || m_nextName % kNameBlock == 0) {
    m_nextName = m_nameBlocks.size() * kNameBlock;
    if (m_nextName > kSource - kNameBlock) throw std::length_error("names of targets");
    m_nameBlocks.emplace_back(new wchar_t[kNameBlock]);
  }
  const size_t position = m_nextName;
  std::copy(name.begin(), name.end(), m_nameBlocks.back().get() + position % kNameBlock);
  m_nextName += name.size();
  return static_cast<uint32_t>(position);
}

std::wstring_view CTargets::NameOf(const CStoredTarget& target) const {
  return {m_nameBlocks[target.name / kNameBlock].get() + target.name % kNameBlock, target.nameLength};
}

// Returns the index of a filter item + 1; 0 for null.
uint32_t CTargets::NumberOf(const CFilterItem* item) const {
  if (!item) return 0;
  const auto& items = m_filter->Items();
  const auto found = std::ranges::lower_bound(items, item->lineIndex, {}, &CFilterItem::lineIndex);
  const auto number = static_cast<size_t>(found - items.begin()) + 1;
  if (number > kMostItems) throw std::length_error("filter items of targets");
  return static_cast<uint32_t>(number);
}

CTargetCounts CountTargets(const CTargets& targets) {
  CTargetCounts counts;
  for (const CTarget target : targets) {
    if (target.IsCountedFile()) {
      ++counts.counted;
      counts.bytes += target.Size();
    }
    if (target.IsExcluded()) ++counts.excluded;
    if (target.IsFolder() && !target.IsExcluded()) ++counts.folders;
  }
  return counts;
}

std::optional<CTarget> NewestTarget(const CTargets& targets) {
  std::optional<CTarget> newest;
  my::CFileTime time;
  for (const CTarget target : targets) {
    if (!target.IsCountedFile() || target.LastWriteTime() <= time) continue;
    newest = target;
    time = target.LastWriteTime();
  }
  return newest;
}

my::CFileTime NewestWriteTime(const CTargets& targets) {
  const auto newest = NewestTarget(targets);
  return newest ? newest->LastWriteTime() : my::CFileTime();
}

}  // namespace qlm
