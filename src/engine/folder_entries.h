// The entries of one folder, with the decisions of the filter.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "support/regex.h"

namespace qlm {

class CFilter;
struct CFilterItem;

// What is listed. Threads may share it.
struct CListedSource {
  my::IFileSystem& files;
  const CFilter& filter;
  const std::wstring& path;
};

// Folders have paths relative to the source: empty for the source itself, or with "\" at the end.

// Returns whether the system could not search the folder: its pattern has 260 characters or more.
bool IsTooLong(const CListedSource& source, std::wstring_view folder);

// Returns whether the entry is a folder that is listed itself, unless the filter excludes it or its path is
// too long. The entries "." and ".." are not.
bool IsSubfolder(const my::CFindData& entry);

class IFolderEntries {
 public:
  virtual ~IFolderEntries() = default;

  // Returns false after the last entry. Throws what IFindFiles::Next throws.
  virtual bool Next(my::CFindData& entry) = 0;

  // Returns the filter item that decides for the last entry; null if none matches. Throws what CFilter::Find
  // throws.
  virtual const CFilterItem* FilterItem() = 0;

  // Returns whether the entries after the last one are in another object.
  virtual bool IsContinued() const { return false; }
};

// The entries as they are enumerated.
class CFoundEntries final : public IFolderEntries {
 public:
  // Throws what IFileSystem::Find throws.
  CFoundEntries(const CListedSource& source, std::wstring_view folder);

  bool Next(my::CFindData& entry) override;
  const CFilterItem* FilterItem() override;

  // Returns the path of the last entry; a folder ends in "\". Valid until the next call of a function.
  const std::wstring& Path();

 private:
  CListedSource m_source;
  std::unique_ptr<my::IFindFiles> m_find;
  my::CFindData m_entry;  // the last one
  std::wstring m_path;
  size_t m_folderLength;  // characters of the folder's path in m_path
  my::CRegexMatch m_scratch;
};

// Entries that have been read before. A failure is kept and thrown at its place in the order.
class CReadEntries final : public IFolderEntries {
 public:
  // Enough for most folders; a larger one is read in several portions.
  static constexpr size_t kPortion = 512;

  // Reads the next portion of the folder. Opens it if `found` is null, and resets it if nothing follows.
  // Appends the paths of subfolders to list to `subfolders`.
  CReadEntries(const CListedSource& source, const std::wstring& folder, std::unique_ptr<CFoundEntries>& found,
               std::vector<std::wstring>& subfolders);

  // Throws if the folder could not be opened.
  void CheckOpened() const;

  bool Next(my::CFindData& entry) override;
  const CFilterItem* FilterItem() override;
  bool IsContinued() const override { return m_isContinued; }

 private:
  enum class Step { Open, Next, Filter };

  struct CEntry {
    my::CFileTime lastWriteTime;
    uint64_t size;
    uint32_t attributes;
    uint32_t nameLength;
    const CFilterItem* item;
  };

  void Read(const CListedSource& source, CFoundEntries& found, std::vector<std::wstring>& subfolders);

  std::vector<CEntry> m_entries;
  std::wstring m_names;  // of all entries
  size_t m_next = 0;
  size_t m_nextName = 0;
  bool m_isContinued = false;
  Step m_step = Step::Open;  // the last one
  std::exception_ptr m_failure;
};

}  // namespace qlm
