#include "engine/source_listing.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "document/filter.h"
#include "engine/folder_entries.h"
#include "engine/folders_ahead.h"
#include "engine/ordered_work.h"
#include "engine/source_guard.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "platform/file_system.h"
#include "support/exception.h"
#include "support/paths.h"

namespace qlm {
namespace {

// Adds entries to the list in the order of a recursion into the folders.
class CListing {
 public:
  // Returns the entries of a folder, or their continuation; null if they have not been read yet. Throws what
  // IFileSystem::Find throws.
  using COpen = std::function<std::unique_ptr<IFolderEntries>(const std::wstring& folder)>;

  CListing(const CListedSource& source, const my::IStopQuery* stop, CTargets& targets, COpen open)
      : m_source(source), m_stop(stop), m_targets(targets), m_open(std::move(open)) {
    Enter(CTargets::kSource, 0);
  }

  // Goes on to the next folder that has not been read yet, or to the end.
  void Advance() {
    while (!IsComplete() && Step()) {
    }
  }

  bool IsComplete() const { return m_folders.empty(); }
  const std::optional<my::CException>& SourceFailure() const { return m_sourceFailure; }

 private:
  struct CFolder {
    size_t index;  // of its entry
    uint32_t attributes;
    size_t pathLength;
    std::unique_ptr<IFolderEntries> entries;
  };

  // Enters the folder m_path, whose entry has this index.
  void Enter(size_t index, uint32_t attributes) {
    if (IsTooLong(m_source, m_path)) return NoteUnlisted(my::CSystemError::FromWin32(my::kErrorNameTooLong));
    m_folders.push_back({index, attributes, m_path.size(), nullptr});
  }

  // Returns false if the folder has not been read yet.
  bool Step() {
    CFolder& folder = m_folders.back();
    m_path.resize(folder.pathLength);
    if (!folder.entries) return Open(folder);
    my::CFindData entry;
    if (!Next(folder, entry)) return true;
    my::CheckStop(m_stop);
    Add(folder, entry);
    return true;
  }

  bool Open(CFolder& folder) {
    try {
      folder.entries = m_open(m_path);
      return folder.entries != nullptr;
    } catch (const my::CException& failure) {
      NoteUnreadable(folder.attributes, failure);
    }
    m_folders.pop_back();
    return true;
  }

  // Returns false after the last entry, and leaves the folder.
  bool Next(CFolder& folder, my::CFindData& entry) {
    try {
      if (folder.entries->Next(entry)) return true;
    } catch (const my::CException& failure) {
      NoteUnlisted(failure.SystemError());
    }
    if (folder.entries->IsContinued())
      folder.entries.reset();
    else
      m_folders.pop_back();
    return false;
  }

  void Add(CFolder& folder, const my::CFindData& entry) {
    const bool isSubfolder = IsSubfolder(entry);
    if (!isSubfolder && (entry.attributes & my::kAttributeFolder) != 0) return;
    const CFilterItem* const item = folder.entries->FilterItem();
    const size_t index = m_targets.Add(entry, folder.index, item);
    if (!isSubfolder || (item && item->IsExclude())) return;
    m_path.append(entry.name) += my::kSeparator;
    Enter(index, entry.attributes);
  }

  // Every user folder has junctions such as "My Music" to other user folders. They deny listing to everybody,
  // and their targets are listed under their own paths.
  void NoteUnreadable(uint32_t attributes, const my::CException& failure) {
    const bool isLink = (attributes & my::kAttributeLink) != 0;
    if (m_path.empty())
      m_sourceFailure = failure;
    else if (!isLink || !failure.SystemError().Is(my::kErrorAccessDenied))
      NoteUnlisted(failure.SystemError());
  }

  void NoteUnlisted(my::CSystemError error) { m_targets.AddUnlisted(m_path, error); }

  CListedSource m_source;
  const my::IStopQuery* m_stop;
  CTargets& m_targets;
  COpen m_open;
  std::vector<CFolder> m_folders;  // from the source to the current one
  std::wstring m_path;             // of the current folder
  std::optional<my::CException> m_sourceFailure;
};

// Reads folders with several threads. The thread that ends a folder adds to the list what can be added now.
class CReadingAhead final : public my::IOrderedWork<CFoldersAhead::CPlace> {
 public:
  CReadingAhead(CFoldersAhead& folders, CListing& listing) : m_folders(folders), m_listing(listing) {}

  std::optional<CFoldersAhead::CPlace> Next() override { return m_folders.BeginRead(); }
  void Run(CFoldersAhead::CPlace& folder) override { m_folders.Read(*folder); }

  void End(CFoldersAhead::CPlace& folder) override {
    if (std::exchange(m_hasFailed, true)) return;
    m_folders.EndRead(folder);
    m_listing.Advance();
    m_hasFailed = false;
  }

 private:
  CFoldersAhead& m_folders;
  CListing& m_listing;
  bool m_hasFailed = false;
};

std::optional<my::CException> ListAhead(const CListedSource& source, const my::IStopQuery* stop,
                                        CTargets& targets, const my::CHelpers& helpers) {
  constexpr size_t kPortionsOfThread = 8;
  CFoldersAhead folders(source, kPortionsOfThread * helpers.count);
  CListing listing(source, stop, targets, [&](const std::wstring& folder) { return folders.Take(folder); });
  CReadingAhead reading(folders, listing);
  // Threads pay only if there are several folders.
  while (!listing.IsComplete() && folders.size() == 1) {
    auto folder = *folders.BeginRead();
    reading.Run(folder);
    reading.End(folder);
  }
  if (!listing.IsComplete()) my::RunOrdered(reading, helpers);
  if (!listing.IsComplete()) throw std::logic_error("the listing has not come to its end");
  return listing.SourceFailure();
}

}  // namespace

std::optional<my::CException> ListSource(my::IFileSystem& files, const CFilter& filter,
                                         const my::IStopQuery* stop, const std::wstring& source,
                                         CTargets& targets, const my::CHelpers& helpers) {
  targets.SetSourceLink(files.IsLink(FolderPath(source)));
  const CListedSource listed{files, filter, source};
  if (helpers.threads && helpers.count > 1) return ListAhead(listed, stop, targets, helpers);
  CListing listing(listed, stop, targets, [&listed](const std::wstring& folder) {
    return std::make_unique<CFoundEntries>(listed, folder);
  });
  listing.Advance();
  return listing.SourceFailure();
}

}  // namespace qlm
