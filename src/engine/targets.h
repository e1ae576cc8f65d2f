#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/unlisted_folder.h"
#include "platform/file_system.h"
#include "support/exception.h"
#include "support/file_time.h"

namespace qlm {

class CFilter;
struct CFilterItem;

// One entry below a task's source. It points into the list that holds it: a list of a million entries is
// kept once and without an allocation for each.
class CTarget {
 public:
  CTarget(std::wstring_view storedPath, const my::CFindData& found, const CFilterItem* item)
      : m_path(storedPath.data()),
        m_length(static_cast<uint32_t>(storedPath.size())),
        m_attributes(found.attributes),
        m_lastWriteTime(found.lastWriteTime),
        m_size(found.size),
        m_item(item) {}

  // "docs\a.txt"; the path of a folder ends in "\".
  std::wstring_view RelativePath() const { return {m_path, m_length}; }
  uint32_t Attributes() const { return m_attributes; }
  my::CFileTime LastWriteTime() const { return m_lastWriteTime; }
  uint64_t Size() const { return m_size; }  // bytes, when it was listed

  // The filter item that decided, null when none matched.
  const CFilterItem* FilterItem() const { return m_item; }

  // A link has the size of the link, not of what it points to.
  bool IsLink() const { return (m_attributes & my::kAttributeLink) != 0; }

  bool IsFolder() const { return (m_attributes & my::kAttributeFolder) != 0; }
  bool IsExcluded() const;

  // Only these are copied or archived, and only these count for the newest write time.
  bool IsCountedFile() const { return !IsFolder() && !IsExcluded(); }

 private:
  const wchar_t* m_path;
  uint32_t m_length;
  uint32_t m_attributes;
  my::CFileTime m_lastWriteTime;
  uint64_t m_size;
  const CFilterItem* m_item;
};

// Every entry below a task's source in listing order: a folder stands before its contents.
class CTargets {
 public:
  using const_iterator = std::deque<CTarget>::const_iterator;

  CTargets() = default;
  explicit CTargets(boost::shared_ptr<const CFilter> filter) : m_filter(std::move(filter)) {}

  const_iterator begin() const { return m_targets.begin(); }
  const_iterator end() const { return m_targets.end(); }
  size_t size() const { return m_targets.size(); }

  // Keeps a copy of the path.
  const CTarget& Add(std::wstring_view relativePath, const my::CFindData& found, const CFilterItem* item);

  // What is missing from the list, and so from every backup made of it.
  const std::vector<CUnlistedFolder>& Unlisted() const { return m_unlisted; }
  void AddUnlisted(std::wstring_view relativeFolder, my::CSystemError error) {
    m_unlisted.push_back({std::wstring(relativeFolder), error});
  }

 private:
  std::wstring_view Store(std::wstring_view text);

  boost::shared_ptr<const CFilter> m_filter;  // owns the items that the entries point to
  std::deque<CTarget> m_targets;
  std::vector<std::unique_ptr<wchar_t[]>> m_blocks;
  size_t m_blockLeft = 0;
  wchar_t* m_blockNext = nullptr;
  std::vector<CUnlistedFolder> m_unlisted;
};

using CTargetsPtr = boost::shared_ptr<const CTargets>;

struct CTargetCounts {
  size_t counted = 0;   // files to back up
  size_t excluded = 0;  // files and folders that the filter excludes
};

CTargetCounts CountTargets(const CTargets& targets);

// The latest write time among the counted files, zero when there is none.
my::CFileTime NewestWriteTime(const CTargets& targets);

}  // namespace qlm
