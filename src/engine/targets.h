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

// One entry below a task's source. It points into the list that owns it, so that a list of a million entries
// needs no allocation per entry.
class CTarget {
 public:
  CTarget(std::wstring_view storedPath, const my::CFindData& found, const CFilterItem* item)
      : m_path(storedPath.data()),
        m_length(static_cast<uint32_t>(storedPath.size())),
        m_attributes(found.attributes),
        m_lastWriteTime(found.lastWriteTime),
        m_size(found.size),
        m_item(item) {}

  // The path relative to the source: "docs\a.txt"; the path of a folder ends in "\".
  std::wstring_view RelativePath() const { return {m_path, m_length}; }
  uint32_t Attributes() const { return m_attributes; }
  my::CFileTime LastWriteTime() const { return m_lastWriteTime; }
  uint64_t Size() const { return m_size; }  // bytes at the time of the listing

  // Returns the filter item that decided; null if none matched.
  const CFilterItem* FilterItem() const { return m_item; }

  // The size of a link is that of the link, not of its target.
  bool IsLink() const { return (m_attributes & my::kAttributeLink) != 0; }

  bool IsFolder() const { return (m_attributes & my::kAttributeFolder) != 0; }
  bool IsExcluded() const;

  // Only these files are backed up and count for the newest write time.
  bool IsCountedFile() const { return !IsFolder() && !IsExcluded(); }

 private:
  const wchar_t* m_path;
  uint32_t m_length;
  uint32_t m_attributes;
  my::CFileTime m_lastWriteTime;
  uint64_t m_size;
  const CFilterItem* m_item;
};

// All entries below a task's source in listing order: a folder comes before its contents.
class CTargets {
 public:
  using const_iterator = std::deque<CTarget>::const_iterator;

  CTargets() = default;
  explicit CTargets(boost::shared_ptr<const CFilter> filter) : m_filter(std::move(filter)) {}

  const_iterator begin() const { return m_targets.begin(); }
  const_iterator end() const { return m_targets.end(); }
  size_t size() const { return m_targets.size(); }
  const CTarget& operator[](size_t index) const { return m_targets[index]; }

  // Copies the path.
  const CTarget& Add(std::wstring_view relativePath, const my::CFindData& found, const CFilterItem* item);

  // Folders whose contents are missing in the list, and so in every backup made from it.
  const std::vector<CUnlistedFolder>& Unlisted() const { return m_unlisted; }
  void AddUnlisted(std::wstring_view relativeFolder, my::CSystemError error) {
    m_unlisted.push_back({std::wstring(relativeFolder), error});
  }

 private:
  std::wstring_view Store(std::wstring_view text);

  boost::shared_ptr<const CFilter> m_filter;  // owns the items referenced by the entries
  std::deque<CTarget> m_targets;
  std::vector<std::unique_ptr<wchar_t[]>> m_blocks;
  size_t m_blockLeft = 0;
  wchar_t* m_blockNext = nullptr;
  std::vector<CUnlistedFolder> m_unlisted;
};

using CTargetsPtr = boost::shared_ptr<const CTargets>;

struct CTargetCounts {
  size_t counted = 0;   // files to back up
  uint64_t bytes = 0;   // of these files, at the time of the listing
  size_t folders = 0;   // folders not excluded
  size_t excluded = 0;  // files and folders excluded by the filter
};

CTargetCounts CountTargets(const CTargets& targets);

// Returns the first counted file with the latest write time; null if no counted file has a time.
const CTarget* NewestTarget(const CTargets& targets);

// Returns the latest write time of the counted files; zero if there are none.
my::CFileTime NewestWriteTime(const CTargets& targets);

}  // namespace qlm
