#include "engine/source_listing.h"

#include "document/filter.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "platform/file_system.h"
#include "support/exception.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr std::wstring_view kPattern = L"*.*";
constexpr size_t kPatternLimit = 260;  // length of the folder path with the pattern

class CListing {
 public:
  CListing(my::IFileSystem& files, const CFilter& filter, const my::IStopQuery* stop,
           const std::wstring& source, CTargets& targets)
      : m_files(files), m_filter(filter), m_stop(stop), m_source(source), m_targets(targets) {}

  // Lists the folder m_path, which is relative to the source: empty, or with "\" at its end. `self` is the
  // index of its entry.
  void ListFolder(size_t self, uint32_t attributes) {
    const std::wstring folder = my::JoinPath(m_source, m_path);
    if (my::JoinPath(folder, kPattern).size() >= kPatternLimit)
      return NoteUnlisted(my::CSystemError::FromWin32(my::kErrorNameTooLong));
    std::unique_ptr<my::IFindFiles> find;
    try {
      find = m_files.Find(folder);
    } catch (const my::CException& failure) {
      if (m_path.empty()) {
        m_sourceFailure = failure;
        return;
      }
      if (IsGuardedLink(attributes, failure)) return;
      return NoteUnlisted(failure.SystemError());
    }
    my::CFindData entry;
    while (Next(*find, entry)) {
      my::CheckStop(m_stop);
      AddEntry(self, entry);
    }
  }

  const std::optional<my::CException>& SourceFailure() const { return m_sourceFailure; }

 private:
  // Every user folder has junctions such as "My Music" to other user folders. They deny listing to everybody,
  // and their targets are listed under their own paths.
  static bool IsGuardedLink(uint32_t attributes, const my::CException& failure) {
    return (attributes & my::kAttributeLink) != 0 && failure.SystemError().Is(my::kErrorAccessDenied);
  }

  bool Next(my::IFindFiles& find, my::CFindData& entry) {
    try {
      return find.Next(entry);
    } catch (const my::CException& failure) {
      NoteUnlisted(failure.SystemError());
      return false;
    }
  }

  void NoteUnlisted(my::CSystemError error) { m_targets.AddUnlisted(m_path, error); }

  void AddEntry(size_t parent, const my::CFindData& entry) {
    const bool folder = (entry.attributes & my::kAttributeFolder) != 0;
    if (folder && (entry.name == L"." || entry.name == L"..")) return;
    const size_t parentLength = m_path.size();
    m_path += entry.name;
    if (folder) m_path += my::kSeparator;
    const CFilterItem* const item = m_filter.Items().empty() ? nullptr : m_filter.Find(m_path, m_scratch);
    const size_t self = m_targets.Add(entry, parent, item);
    if (folder && !(item && item->IsExclude())) ListFolder(self, entry.attributes);
    m_path.resize(parentLength);
  }

  my::IFileSystem& m_files;
  const CFilter& m_filter;
  const my::IStopQuery* m_stop;
  const std::wstring& m_source;
  CTargets& m_targets;
  std::wstring m_path;
  std::optional<my::CException> m_sourceFailure;
  my::CRegexMatch m_scratch;
};

}  // namespace

std::optional<my::CException> ListSource(my::IFileSystem& files, const CFilter& filter,
                                         const my::IStopQuery* stop, const std::wstring& source,
                                         CTargets& targets) {
  CListing listing(files, filter, stop, source, targets);
  listing.ListFolder(CTargets::kSource, 0);
  return listing.SourceFailure();
}

}  // namespace qlm
