#include "engine/folder_copy.h"

#include "engine/fresh_files.h"
#include "engine/targets.h"
#include "engine/task_base.h"
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
              const std::wstring& to) {
  const uint64_t listed = target.IsLink() ? ports.files.FileSize(from) : target.Size();
  ports.files.Copy(from, to);
  CheckCopied(ports.files, listed, FlushFresh(ports, to, my::FlushDepth::WriteOut), from, to);
}

}  // namespace

void CopyToFolder(const CTransferPorts& ports, const std::wstring& source, const CTargets& targets,
                  const std::wstring& folder) {
  std::wstring to;
  std::wstring lastParent;
  for (const CTarget& target : targets) {
    my::CheckStop(ports.stop);
    if (!target.IsCountedFile()) continue;
    to = my::JoinPath(folder, target.RelativePath());
    const std::wstring_view parent = my::ParentPath(to);
    if (!my::EqualNoCase(parent, lastParent)) {
      lastParent = parent;
      ports.files.CreateFolders(lastParent);
    }
    CopyFile(ports, target, my::JoinPath(source, target.RelativePath()), to);
  }
  // One device flush for all files that were written out.
  if (!to.empty()) FlushFresh(ports, to, my::FlushDepth::Device);
}

}  // namespace qlm
