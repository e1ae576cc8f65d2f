// The folders that a listing reads before it needs them.
#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/folder_entries.h"

namespace qlm {

// The folders that are known and not listed yet, in listing order: the subfolders of a folder come directly
// after it as soon as it has been read. Only Read may be called by several threads at the same time, also
// during other calls.
class CFoldersAhead {
 public:
  // A folder, or the rest of one that has been read in part.
  struct CFolder {
    enum class State { Waiting, Reading, Read };

    std::wstring path;
    State state = State::Waiting;
    std::unique_ptr<CFoundEntries> found;  // the open folder, if a part has been read
    // For the thread that reads, then for the one that lists.
    std::unique_ptr<CReadEntries> entries;
    std::vector<std::wstring> subfolders;  // of these entries
  };
  using CPlace = std::list<CFolder>::iterator;

  // Starts with the source itself. At most `limit` portions of folders are in memory before they are needed.
  CFoldersAhead(const CListedSource& source, size_t limit);

  // Returns the first folder that waits, which must then be read; nullopt if there is none or the limit has
  // been reached. The folder that is needed first has no limit.
  std::optional<CPlace> BeginRead();
  void Read(CFolder& folder) const;
  void EndRead(CPlace folder);

  // Returns the next portion of the first folder, which has this path; null if it has not been read yet.
  // Throws if the folder could not be opened.
  std::unique_ptr<IFolderEntries> Take(const std::wstring& path);

  // Returns the number of known folders.
  size_t size() const { return m_folders.size(); }

 private:
  CListedSource m_source;
  size_t m_limit;
  size_t m_begun = 0;  // folders that are not waiting
  std::list<CFolder> m_folders;
};

}  // namespace qlm
