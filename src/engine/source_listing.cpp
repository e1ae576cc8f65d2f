#include "engine/source_listing.h"

#include "document/filter.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "platform/file_system.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr size_t kPatternLimit = 260;

class CListing {
 public:
  CListing(my::IFileSystem& files, const CFilter& filter, const my::IStopQuery* stop,
           const std::wstring& source, CTargets& targets)
      : m_files(files), m_filter(filter), m_stop(stop), m_source(source), m_targets(targets) {}

  // Lists the folder that m_path names (relative, empty or with its "\" at the end).
  void ListFolder() {
    const std::wstring pattern = my::JoinPath(my::JoinPath(m_source, m_path), L"*.*");
    const auto find = pattern.size() < kPatternLimit ? m_files.Find(pattern) : nullptr;
    if (!find) {
      // A source that cannot be read at all shows by itself: nothing is found in it.
      if (!m_path.empty()) m_targets.AddUnlisted(m_path);
      return;
    }
    for (;;) {
      my::CFindData entry;
      const auto result = find->Next(entry);
      if (result == my::IFindFiles::Result::FAILED) return m_targets.AddUnlisted(m_path);
      if (result == my::IFindFiles::Result::END) return;
      my::CheckStop(m_stop);
      AddEntry(entry);
    }
  }

 private:
  void AddEntry(const my::CFindData& entry) {
    const bool folder = (entry.attributes & my::kAttributeFolder) != 0;
    if (folder && (entry.name == L"." || entry.name == L"..")) return;
    const size_t parentLength = m_path.size();
    m_path += entry.name;
    if (folder) m_path += my::kSeparator;
    const CFilterItem* const item = m_filter.Items().empty() ? nullptr : m_filter.Find(m_path, m_scratch);
    const CTarget& target = m_targets.Add(m_path, entry, item);
    if (folder && !target.IsExcluded()) ListFolder();
    m_path.resize(parentLength);
  }

  my::IFileSystem& m_files;
  const CFilter& m_filter;
  const my::IStopQuery* m_stop;
  const std::wstring& m_source;
  CTargets& m_targets;
  std::wstring m_path;
  my::CRegexMatch m_scratch;
};

}  // namespace

void ListSource(my::IFileSystem& files, const CFilter& filter, const my::IStopQuery* stop,
                const std::wstring& source, CTargets& targets) {
  CListing(files, filter, stop, source, targets).ListFolder();
}

}  // namespace qlm
