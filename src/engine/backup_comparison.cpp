#include "engine/backup_comparison.h"

#include <unordered_map>

#include "document/filter.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "support/paths.h"

namespace qlm {

std::optional<CBackupDifference> CompareBackup(my::IFileSystem& files, const my::IStopQuery* stop,
                                               const CTargets& targets, const std::wstring& backup) {
  CTargets copies;
  const auto failure = ListSource(files, CFilter(), stop, backup, copies);
  if (failure || !copies.Unlisted().empty()) return {};
  std::unordered_map<std::wstring, uint64_t> sizes;  // of the copies that are not compared yet
  for (const CTarget copy : copies) {
    if (!copy.IsFolder()) sizes.emplace(my::ComparablePath(copy.RelativePath()), copy.Size());
  }
  CBackupDifference difference;
  for (const CTarget target : targets) {
    if (!target.IsCountedFile()) continue;
    const auto copy = sizes.find(my::ComparablePath(target.RelativePath()));
    if (copy == sizes.end()) {
      ++difference.missing;
      continue;
    }
    if (!target.IsLink() && copy->second != target.Size()) ++difference.resized;
    sizes.erase(copy);
  }
  difference.extra = sizes.size();
  return difference;
}

}  // namespace qlm
