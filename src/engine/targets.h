#pragma once

#include <boost/iterator/transform_iterator.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <deque>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/unlisted_folder.h"
#include "platform/file_system.h"
#include "support/exception.h"
#include "support/file_time.h"

namespace qlm {

class CFilter;
class CTargets;
struct CFilterItem;

// What a list stores of one entry: 32 bytes, and the name in the blocks of the list. A list of a million
// entries therefore needs no allocation per entry, and no path twice.
struct CStoredTarget {
  my::CFileTime lastWriteTime;
  uint64_t size;
  uint32_t attributes;
  uint32_t parent;           // index of the folder that contains it, or CTargets::kSource
  uint32_t name;             // position in the blocks of names, in characters
  uint32_t nameLength : 9;   // file systems allow 255
  uint32_t filterItem : 22;  // index + 1; 0 if none matched. A filter file has less than 4 million rules.
  uint32_t isExcluded : 1;
};

// One entry below a task's source: a view into the list that owns it.
class CTarget {
 public:
  CTarget(const CTargets& targets, const CStoredTarget& stored) : m_targets(&targets), m_stored(&stored) {}

  // Returns the path relative to the source: "docs\a.txt"; the path of a folder ends in "\".
  std::wstring RelativePath() const;
  // Appends this path. A loop that reuses the text needs no allocation per entry.
  void AppendRelativePath(std::wstring& text) const;

  uint32_t Attributes() const { return m_stored->attributes; }
  my::CFileTime LastWriteTime() const { return m_stored->lastWriteTime; }
  uint64_t Size() const { return m_stored->size; }  // bytes at the time of the listing

  // Returns the filter item that decided; null if none matched.
  const CFilterItem* FilterItem() const;

  // Returns the index of the folder that contains the entry, or CTargets::kSource.
  size_t Parent() const { return m_stored->parent; }

  // The size of a link is that of the link, not of its target.
  bool IsLink() const { return (Attributes() & my::kAttributeLink) != 0; }

  bool IsFolder() const { return (Attributes() & my::kAttributeFolder) != 0; }
  bool IsExcluded() const { return m_stored->isExcluded != 0; }

  // Only these files are backed up and count for the newest write time.
  bool IsCountedFile() const { return !IsFolder() && !IsExcluded(); }

 private:
  const CTargets* m_targets;
  const CStoredTarget* m_stored;
};

// All entries below a task's source in listing order: a folder comes before its contents. Threads may read a
// list at the same time. Entries are views, so a list that has any must not be moved.
class CTargets {
  struct CView {
    CTarget operator()(const CStoredTarget& stored) const { return {*targets, stored}; }
    const CTargets* targets;
  };

 public:
  using const_iterator = boost::transform_iterator<CView, std::deque<CStoredTarget>::const_iterator>;

  // As the parent of an entry: the source itself.
  static constexpr size_t kSource = std::numeric_limits<uint32_t>::max();

  CTargets() = default;
  // The items of the entries are those of the filter.
  explicit CTargets(boost::shared_ptr<const CFilter> filter) : m_filter(std::move(filter)) {}

  const_iterator begin() const { return {m_targets.begin(), CView{this}}; }
  const_iterator end() const { return {m_targets.end(), CView{this}}; }
  size_t size() const { return m_targets.size(); }
  CTarget operator[](size_t index) const { return {*this, m_targets[index]}; }

  // Adds an entry of the folder with the index `parent` and returns its index. Copies the name. Throws
  // std::length_error if a name or the list is longer than any file system allows.
  size_t Add(const my::CFindData& found, size_t parent = kSource, const CFilterItem* item = nullptr);

  // Whether the source itself was a link when the listing began.
  bool IsSourceLink() const { return m_isSourceLink; }
  void SetSourceLink(bool isLink) { m_isSourceLink = isLink; }

  // Folders whose contents are missing in the list, and so in every backup made from it.
  const std::vector<CUnlistedFolder>& Unlisted() const { return m_unlisted; }
  void AddUnlisted(std::wstring_view relativeFolder, my::CSystemError error) {
    m_unlisted.push_back({std::wstring(relativeFolder), error});
  }

 private:
  friend class CTarget;

  uint32_t StoreName(std::wstring_view name);
  std::wstring_view NameOf(const CStoredTarget& target) const;
  uint32_t NumberOf(const CFilterItem* item) const;

  boost::shared_ptr<const CFilter> m_filter;
  std::deque<CStoredTarget> m_targets;
  std::vector<std::unique_ptr<wchar_t[]>> m_nameBlocks;
  size_t m_nextName = 0;  // position of the next name
  std::vector<CUnlistedFolder> m_unlisted;
  bool m_isSourceLink = false;
};

using CTargetsPtr = boost::shared_ptr<const CTargets>;

struct CTargetCounts {
  size_t counted = 0;   // files to back up
  uint64_t bytes = 0;   // of these files, at the time of the listing
  size_t folders = 0;   // folders not excluded
  size_t excluded = 0;  // files and folders excluded by the filter
};

CTargetCounts CountTargets(const CTargets& targets);

// Returns the first counted file with the latest write time; nullopt if no counted file has a time.
std::optional<CTarget> NewestTarget(const CTargets& targets);

// Returns the latest write time of the counted files; zero if there are none.
my::CFileTime NewestWriteTime(const CTargets& targets);

}  // namespace qlm
