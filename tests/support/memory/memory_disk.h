// The tree of a disk in memory, with links and with the caches whose bytes a power cut loses.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "support/paths.h"
#include "support/strings.h"

namespace test {

// Where the newest bytes of a file are.
enum class Cache { NONE, DEVICE, SYSTEM };

struct CEntry {
  bool IsLink() const { return (attributes & my::kAttributeLink) != 0; }

  bool IsWithin(std::wstring_view other) const {
    return my::EqualNoCase(std::wstring_view(path).substr(0, other.size()), other) &&
           (path.size() == other.size() || path[other.size()] == my::kSeparator);
  }

  std::wstring path;
  bool folder = false;
  my::CFileTime time = {};
  std::string content = {};
  uint32_t attributes = folder ? my::kAttributeFolder : 0;
  std::wstring linkTarget = {};
  Cache cache = Cache::NONE;
  size_t flushedSize = 0;  // bytes that a power cut keeps; used unless `cache` is NONE
  bool open = false;       // for writing; can be neither renamed nor removed
  int holds = 0;
  int renameRefusals = 0;
};
using CEntryPtr = std::shared_ptr<CEntry>;

// Has the drives C: and D:. Reads paths as the system does: without case, without trailing dots and spaces,
// and without the name of a stream.
class CMemoryDisk {
 public:
  const std::vector<CEntryPtr>& Entries() const { return m_entries; }  // in order of creation

  CEntryPtr Lookup(std::wstring_view given) const {
    const std::wstring_view path = my::TrimEnd(Meant(given), L"\\");
    const auto isIt = [path](const CEntryPtr& entry) { return my::EqualNoCase(entry->path, path); };
    const auto found = std::ranges::find_if(m_entries, isIt);
    return found == m_entries.end() ? nullptr : *found;
  }

  // Returns the file, or the target of a link.
  CEntryPtr Open(std::wstring_view path) const { return Lookup(Resolve(path)); }

  // Returns the path with all its links followed.
  std::wstring Resolve(std::wstring_view path) const {
    if (!m_hasLinks) return std::wstring(path);
    const std::wstring located = Located(path);
    const CEntryPtr entry = Lookup(located);
    return entry && !entry->linkTarget.empty() ? Resolve(entry->linkTarget) : located;
  }

  // Returns the path with the links of its parents followed.
  std::wstring Located(std::wstring_view path) const {
    const std::wstring_view parent = my::ParentPath(path);
    if (parent.empty() || !m_hasLinks) return std::wstring(path);
    return my::JoinPath(Resolve(parent), my::LastComponent(path));
  }

  bool IsFolder(std::wstring_view path) const {
    const CEntryPtr entry = Lookup(path);
    const bool drive = my::EqualNoCase(path, L"C:\\") || my::EqualNoCase(path, L"D:\\");
    return drive || (entry && entry->folder);
  }

  static bool IsDevice(std::wstring_view path) {
    const std::wstring_view name = my::LastComponent(path);
    const std::wstring_view stem = my::TrimEnd(name.substr(0, name.find_first_of(L".:")), L" ");
    return my::EqualNoCase(stem, L"nul") || my::EqualNoCase(stem, L"com1");
  }

  // Returns the missing folders of the path, outermost first.
  std::vector<std::wstring> MissingFolders(std::wstring_view path) const {
    std::vector<std::wstring> missing;
    for (; !path.empty() && !IsFolder(path); path = my::ParentPath(path)) {
      missing.insert(missing.begin(), std::wstring(my::TrimEnd(path, L"\\")));
    }
    return missing;
  }

  CEntryPtr Insert(const std::wstring& path, bool folder) {
    return m_entries.emplace_back(std::make_shared<CEntry>(CEntry{std::wstring(Meant(path)), folder}));
  }

  CEntryPtr InsertLink(const std::wstring& path, const std::wstring& target) {
    m_hasLinks = true;
    const CEntryPtr link = Insert(path, target.empty() || IsFolder(target));
    link->attributes |= my::kAttributeLink;
    link->linkTarget = target;
    return link;
  }

  void Erase(const CEntryPtr& entry) { std::erase(m_entries, entry); }

  // Removes what is within the path, children first; only the first half of it if the removal fails.
  void Remove(const std::wstring& path, bool fails = false) {
    const auto isWithin = [&path](const CEntryPtr& entry) { return entry->IsWithin(path); };
    const auto all = std::ranges::count_if(m_entries, isWithin);
    auto left = fails ? all / 2 : all;
    for (auto at = m_entries.end(); left > 0;) {
      if (isWithin(*--at)) at = m_entries.erase(at), --left;
    }
  }

  void Rename(const std::wstring& from, const std::wstring& to) {
    for (const CEntryPtr& entry : m_entries) {
      if (entry->IsWithin(from)) entry->path.replace(0, from.size(), to);
    }
  }

  void Flush(CEntry& entry, my::FlushDepth depth) {
    if (entry.cache == Cache::SYSTEM) entry.cache = Cache::DEVICE;
    if (depth != my::FlushDepth::Device) return;
    for (const CEntryPtr& other : m_entries) {
      if (other->cache == Cache::DEVICE) other->cache = Cache::NONE;
    }
  }

  // Loses the second half of the bytes that were not flushed.
  void CutPower() {
    for (const CEntryPtr& entry : m_entries) {
      if (entry->cache == Cache::NONE) continue;
      entry->content.resize(entry->flushedSize + (entry->content.size() - entry->flushedSize) / 2);
    }
  }

 private:
  static std::wstring_view Meant(std::wstring_view path) {
    path = my::TrimEnd(path, L". ");
    const size_t colon = path.find(L':', std::min<size_t>(path.size(), 2));
    return colon == path.npos ? path : path.substr(0, colon);
  }

  std::vector<CEntryPtr> m_entries;
  bool m_hasLinks = false;
};

}  // namespace test
