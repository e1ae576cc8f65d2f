#include "engine/folder_copy.h"

#include <algorithm>

#include "engine/targets.h"
#include "engine/task_base.h"
#include "platform/file_system.h"
#include "resource.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {
namespace {

// A system can answer that all went well after it read only a part of the file. The source may have grown or
// shrunk since it was listed, so any size between then and now is that of a whole copy.
void CheckCopied(my::IFileSystem& files, const CTarget& target, const std::wstring& from,
                 const std::wstring& to) {
  const uint64_t copied = files.FileSize(to);
  if (copied == target.Size()) return;
  const uint64_t now = files.FileSize(from);
  if (copied >= std::min(now, target.Size()) && copied <= std::max(now, target.Size())) return;
  const std::wstring sizes = std::to_wstring(now) + L" -> " + std::to_wstring(copied);
  throw my::CException(IDS_COPY_INCOMPLETE, {sizes, from, to});
}

}  // namespace

void CopyToFolder(my::IFileSystem& files, const my::IStopQuery* stop, const std::wstring& source,
                  const CTargets& targets, const std::wstring& folder) {
  std::wstring lastParent;
  for (const CTarget& target : targets) {
    my::CheckStop(stop);
    if (!target.IsCountedFile()) continue;
    const std::wstring from = my::JoinPath(source, target.RelativePath());
    const std::wstring to = my::JoinPath(folder, target.RelativePath());
    const std::wstring_view parent = my::ParentPath(to);
    if (!my::EqualNoCase(parent, lastParent)) {
      lastParent = parent;
      files.CreateFolders(lastParent);
    }
    files.Copy(from, to);
    CheckCopied(files, target, from, to);
  }
}

}  // namespace qlm
