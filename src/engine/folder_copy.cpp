#include "engine/folder_copy.h"

#include <algorithm>
#include <optional>

#include "engine/fresh_files.h"
#include "engine/ordered_work.h"
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

struct CFileCopy {
  CTarget target;
  std::wstring to;
  CFileCount count;
};

class CFolderCopy : public my::IOrderedWork<CFileCopy> {
 public:
  CFolderCopy(const CTransferPorts& ports, const std::wstring& source, const CTargets& targets,
              const std::wstring& folder, CTransferCounters& counters)
      : m_ports(ports), m_source(source), m_targets(targets), m_folder(folder), m_counters(counters) {}

  std::optional<CFileCopy> Next() override {
    while (m_place < m_targets.size()) {
      const size_t place = m_place++;
      my::CheckStop(m_ports.stop);
      const CTarget target = m_targets[place];
      if (!target.IsCountedFile()) continue;
      m_last = my::JoinPath(m_folder, target.RelativePath());
      CreateParent(my::ParentPath(m_last));
      return CFileCopy{target, m_last, m_counters.BeginFile(place, target.Size())};
    }
    return {};
  }

  void Run(CFileCopy& copy) override {
    const std::wstring from = my::JoinPath(m_source, copy.target.RelativePath());
    const uint64_t listed = copy.target.IsLink() ? m_ports.files.FileSize(from) : copy.target.Size();
    constexpr uint64_t kLarge = uint64_t{1} << 20;  // a smaller file is counted at its end
    if (copy.target.Size() < kLarge)
      m_ports.files.Copy(from, copy.to);
    else
      m_ports.files.Copy(from, copy.to, [&](uint64_t done) { m_counters.CountWithinFile(copy.count, done); });
    CheckCopied(m_ports.files, listed, FlushFresh(m_ports, copy.to, my::FlushDepth::WriteOut), from, copy.to);
  }

  void End(CFileCopy& copy) override { m_counters.EndFile(copy.count); }

  // One device flush for all files that were written out.
  void FlushDevice() {
    if (!m_last.empty()) FlushFresh(m_ports, m_last, my::FlushDepth::Device);
  }

 private:
  void CreateParent(std::wstring_view parent) {
    if (my::EqualNoCase(parent, m_lastParent)) return;
    m_lastParent = parent;
    m_ports.files.CreateFolders(m_lastParent);
  }

  const CTransferPorts& m_ports;
  const std::wstring& m_source;
  const CTargets& m_targets;
  const std::wstring& m_folder;
  CTransferCounters& m_counters;
  size_t m_place = 0;
  std::wstring m_last;  // the copy that was begun last
  std::wstring m_lastParent;
};

}  // namespace

void CopyToFolder(const CTransferPorts& ports, const my::CHelpers& helpers, const std::wstring& source,
                  const CTargets& targets, const std::wstring& folder, CTransferCounters& counters) {
  CFolderCopy copy(ports, source, targets, folder, counters);
  RunOrdered(copy, {helpers.threads, std::min(helpers.count, counters.ToDo().counted)});
  copy.FlushDevice();
}

}  // namespace qlm
