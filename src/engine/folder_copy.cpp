#include "engine/folder_copy.h"

#include <algorithm>
#include <optional>

#include "engine/fresh_files.h"
#include "engine/ordered_work.h"
#include "engine/source_guard.h"
#include "engine/targets.h"
#include "engine/task_base.h"
#include "engine/transfer_counters.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Throws IDS_SOURCE_BECAME_LINK if a file that was none at the listing is a link, or its copy is one.
void CheckNoLink(my::IFileSystem& files, const CTarget& target, const std::wstring& path,
                 const std::wstring& from) {
  if (!target.IsLink() && files.IsLink(path)) throw my::CException(IDS_SOURCE_BECAME_LINK, {from});
}

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

// Returns whether the path is the folder or below it, with exactly these names: "a" and "a." are two folders.
bool IsLevelOf(std::wstring_view path, std::wstring_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == my::kSeparator);
}

struct CFileCopy {
  CTarget target;
  std::wstring to;
  CFileCount count;
};

class CFolderCopy : public my::IOrderedWork<CFileCopy> {
 public:
  CFolderCopy(const CTransferPorts& ports, const std::wstring& source, const CTargets& targets,
              const std::wstring& folder, CTransferCounters& counters)
      : m_ports(ports),
        m_source(source),
        m_targets(targets),
        m_folder(folder),
        m_counters(counters),
        m_guard(ports.files, source, targets, FolderHold::Yes) {}

  std::optional<CFileCopy> Next() override {
    while (m_place < m_targets.size()) {
      const size_t place = m_place++;
      my::CheckStop(m_ports.stop);
      const CTarget target = m_targets[place];
      if (!target.IsCountedFile()) continue;
      m_last = my::JoinPath(m_folder, target.RelativePath());
      CreateParent(my::ParentPath(m_last));
      m_guard.Take(target);
      return CFileCopy{target, m_last, m_counters.BeginFile(place, target.Size())};
    }
    return {};
  }

  void Run(CFileCopy& copy) override {
    const std::wstring from = my::JoinPath(m_source, copy.target.RelativePath());
    const uint64_t listed = copy.target.IsLink() ? m_ports.files.FileSize(from) : copy.target.Size();
    CopyContent(copy, from);
    const uint64_t copied = FlushFresh(m_ports, copy.to, my::FlushDepth::WriteOut);
    if (copied == 0) CheckNoLink(m_ports.files, copy.target, copy.to, from);
    CheckCopied(m_ports.files, listed, copied, from, copy.to);
  }

  void End(CFileCopy& copy) override {
    m_counters.EndFile(copy.count);
    m_guard.Release(copy.target);
  }

  // Checks the last folders, and flushes the device for all files that were written out.
  void Finish() {
    m_guard.End();
    if (!m_last.empty()) FlushFresh(m_ports, m_last, my::FlushDepth::Device);
  }

 private:
  // A file that has become a link is not followed: its copy is a link, of size 0, or fails.
  void CopyContent(CFileCopy& copy, const std::wstring& from) {
    const auto link = copy.target.IsLink() ? my::LinkCopy::Target : my::LinkCopy::Link;
    constexpr uint64_t kLarge = uint64_t{1} << 20;  // a smaller file is counted at its end
    my::CCopyProgress progress;
    if (copy.target.Size() >= kLarge)
      progress = [&](uint64_t done) { m_counters.CountWithinFile(copy.count, done); };
    try {
      m_ports.files.Copy(from, copy.to, progress, link);
    } catch (const my::CException&) {
      CheckNoLink(m_ports.files, copy.target, from, from);
      throw;
    }
  }

  // Creates the missing folders below the destination, but never that itself: if somebody removes it
  // meanwhile, the copy must fail rather than go on without the files copied so far.
  void CreateParent(std::wstring_view parent) {
    for (size_t end = m_folder.size(); end < parent.size();) {
      end = std::min(parent.find(my::kSeparator, end + 1), parent.size());
      const std::wstring_view folder = parent.substr(0, end);
      if (!IsLevelOf(m_lastParent, folder)) m_ports.files.CreateNewFolder(std::wstring(folder));
    }
    m_lastParent = parent;
  }

  const CTransferPorts& m_ports;
  const std::wstring& m_source;
  const CTargets& m_targets;
  const std::wstring& m_folder;
  CTransferCounters& m_counters;
  CSourceGuard m_guard;
  size_t m_place = 0;
  std::wstring m_last;  // the copy that was begun last
  std::wstring m_lastParent;
};

}  // namespace

void CopyToFolder(const CTransferPorts& ports, const my::CHelpers& helpers, const std::wstring& source,
                  const CTargets& targets, const std::wstring& folder, CTransferCounters& counters) {
  CFolderCopy copy(ports, source, targets, folder, counters);
  RunOrdered(copy, {helpers.threads, std::min(helpers.count, counters.ToDo().counted)});
  copy.Finish();
}

}  // namespace qlm
