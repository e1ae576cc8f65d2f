#include "engine/folder_copy.h"

#include "engine/fresh_files.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "engine/transfer_counters.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// CopyFile may report success for a truncated copy. A source that changes its size during the copy, such as a
// log, is not a failure: the copy is complete if it is at least as long as the source when listed, or as the
// source now.
void CheckCopied(my::IFileSystem& files, uint64_t listed, uint64_t copied, const std::wstring& from,
                 const std::wstring& to) {
  if (copied >= listed) return;
  const uint64_t now = files.FileSize(from);
  if (copied >= now) return;
  const std::wstring sizes = std::to_wstring(now) + L" -> " + std::to_wstring(copied);
  throw my::CException(IDS_COPY_INCOMPLETE, {sizes, from, to});
}

void CopyFile(const CTransferPorts& ports, const CTarget& target, const std::wstring& from,
              const std::wstring& to, const my::CCopyProgress& progress) {
  const uint64_t listed = target.IsLink() ? ports.files.FileSize(from) : target.Size();
  constexpr uint64_t kLarge = uint64_t{1} << 20;  // a smaller file is counted at its end
  if (target.Size() < kLarge)
    ports.files.Copy(from, to);
  else
    ports.files.Copy(from, to, progress);
  CheckCopied(ports.files, listed, FlushFresh(ports, to, my::FlushDepth::WriteOut), from, to);
}

}  // namespace

void CopyToFolder(const CTransferPorts& ports, const std::wstring& source, const CTargets& targets,
                  const std::wstring& folder, CTransferCounters& counters) {
  const my::CCopyProgress progress = [&counters](uint64_t copied) { counters.CountWithinFile(copied); };
  std::wstring to;
  std::wstring lastParent;
  size_t index = 0;
  for (const CTarget& target : targets) {
    const size_t place = index++;
    my::CheckStop(ports.stop);
    if (!target.IsCountedFile()) continue;
    to = my::JoinPath(folder, target.RelativePath());
    const std::wstring_view parent = my::ParentPath(to);
    if (!my::EqualNoCase(parent, lastParent)) {
      lastParent = parent;
      ports.files.CreateFolders(lastParent);
    }
    counters.BeginFile(place, target.Size());
    CopyFile(ports, target, my::JoinPath(source, target.RelativePath()), to, progress);
    counters.EndFile();
  }
  // One device flush for all files that were written out.
  if (!to.empty()) FlushFresh(ports, to, my::FlushDepth::Device);
}

}  // namespace qlm
