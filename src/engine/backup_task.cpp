#include "engine/backup_task.h"

#include "document/name_pattern.h"
#include "engine/archive_writer.h"
#include "engine/auto_delete_file.h"
#include "engine/destination_path.h"
#include "engine/folder_copy.h"
#include "engine/fresh_files.h"
#include "engine/helper_count.h"
#include "engine/source_listing.h"
#include "engine/task_filter.h"
#include "engine/temporary_target.h"
#include "engine/transfer_counters.h"
#include "engine/transfer_plan.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "support/name_faults.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Returns what a finished backup is on disk.
my::PathKind KindOf(const CDst& dst) {
  return IsZip(dst.type) ? my::PathKind::File : my::PathKind::Folder;
}

}  // namespace

CBackupTask::CBackupTask(const CEnginePorts& ports, const CBackupJob& job) : m_ports(ports) {
  SetTask(job.task);
  SetArchiverPath(job.archiverPath);
  SetPassword(job.password);
}

void CBackupTask::SetTask(const qlm::CTask& task) {
  const auto copy = boost::make_shared<qlm::CTask>(task);
  // The destinations of the document may be edited while the job runs.
  for (CDstPtr& dst : copy->dsts) dst = boost::make_shared<CDst>(*dst);
  m_task = copy;
  m_rows.clear();
  AddRow();
  const my::CAutoLock<my::CAutoCriticalSection> lock(m_publishedLock);
  m_published = {boost::make_shared<CResult>(LastRow())};
}

void CBackupTask::SetPassword(const std::wstring& password) {
  my::Wipe(m_password);
  m_password = password;
}

void CBackupTask::Run() {
  m_error = my::TrapError(m_ports.texts, [this] { MainRun(); });
  if (m_error) LastRow().error = m_error;
  Publish();
  OnEnd();
}

void CBackupTask::MainRun() {
  Notify();
  m_filter = LoadTaskFilter(m_ports, m_task->filterPath);
  ListTargets();
  if (m_listOnly) {
    FillRow(m_task->dsts.empty() ? CTaskDsts() : CTaskDsts{m_task->dsts.front()});
    return CheckDestinationNames();
  }
  for (size_t i = 0; i < m_task->dsts.size(); ++i) {
    if (i > 0) AddRow();
    FillRow({m_task->dsts[i]});
    Notify();
    BackUpTo(*m_task->dsts[i]);
  }
}

void CBackupTask::ListTargets() {
  auto targets = boost::make_shared<CTargets>(m_filter);
  m_targets = targets;
  my::CHelpers helpers = HelpersFor(m_ports, {m_task->path});
  if (m_plan) helpers.priority = my::IThreads::kNormalPriority;  // the user waits for it
  const auto unreadable = ListSource(m_ports.files, *m_filter, m_stop, m_task->path, *targets, helpers);
  LastRow().targets = targets;  // set now, so that a run that ends here shows what the filter excluded
  m_newest = NewestWriteTime(*m_targets);
  if (!m_newest) ThrowNoFiles(unreadable);
}

// Throws IDS_NO_FILES. Without the reason a missing or unreadable source would look like an empty one.
void CBackupTask::ThrowNoFiles(const std::optional<my::CException>& unreadable) const {
  if (!unreadable) throw my::CException(IDS_NO_FILES);
  const my::CSystemError error = unreadable->SystemError();
  my::CException failure(IDS_NO_FILES, {error});
  if (error.Is(my::kErrorFileNotFound) || error.Is(my::kErrorPathNotFound))
    failure.SetReason(my::CTextId{IDS_TASK_NO_SOURCE, {m_task->path}});
  else
    failure.SetReason(my::MakeErrorText(m_ports.texts, *unreadable));
  throw failure;
}

// Fills the last row for the given destinations with the results of the listing.
void CBackupTask::FillRow(const CTaskDsts& dsts) {
  CResult& row = LastRow();
  // Built from its fields: a copy of the task would reserve memory for all its destinations in every row.
  row.task = boost::make_shared<qlm::CTask>(
      qlm::CTask{m_task->id, m_task->path, m_task->filterPath, dsts, m_task->replaceRule});
  row.phase = Phase::Listed;
  row.targets = m_targets;
  row.newestWriteTime = m_newest;
  row.destinationPath = RowPath(row);
}

std::wstring CBackupTask::RowPath(const CResult& row) const {
  const CDst* const dst = row.Dst();
  if (!dst) return {};
  return DestinationPath(*dst, ExpandName(*dst, m_task->id, row.newestWriteTime, m_ports.clock));
}

// Throws IDS_NAME_... if the system would map the name to something else. Such a path may seem to exist, or
// to be created, without any backup.
void CBackupTask::CheckDestinationNames() const {
  const CResult& row = m_rows.back();
  if (!row.Dst()) return;
  const std::wstring_view folder = DestinationFolder(*row.Dst());
  const std::wstring_view name = std::wstring_view(row.destinationPath).substr(folder.size());
  const auto fault = my::FindNameFault(folder, name);
  if (fault) throw my::CException(fault->id, {fault->name});
}

void CBackupTask::BackUpTo(const CDst& dst) {
  const std::wstring path = LastRow().destinationPath;
  // Without a name the path would be the destination folder, which exists and would count as a backup.
  if (my::LastComponent(path).empty()) throw my::CException(IDS_PATH_NO_FILE_NAME, {path});
  CheckDestinationNames();
  if (IsUpToDate(dst)) return SetPhase(Phase::Skipped);
  if (m_plan) return m_plan->Add({path, dst.type, m_archiverPath});
  // An incomplete backup must never have the final name: the next run would consider it finished.
  const uint64_t start = m_ports.clock.TickCount();
  const CTemporaryTarget temporary = TakeTemporaryTarget(m_ports.files, path, dst.type);
  Transfer(dst, temporary.path);
  if (!TakeFinalName(dst, temporary.path)) return SetPhase(Phase::Skipped);
  LastRow().transferMs = m_ports.clock.TickCount() - start;
  LastRow().phase = Phase::Created;
}

// The name contains the newest write time of the source, so an unchanged source has the name of its last
// backup.
bool CBackupTask::IsUpToDate(const CDst& dst) const {
  const std::wstring& path = m_rows.back().destinationPath;
  const my::PathKind kind = m_plan ? m_plan->Kind(path) : m_ports.files.Kind(path);
  if (kind == my::PathKind::None) return false;
  if (kind == KindOf(dst)) return true;
  throw my::CException(IsZip(dst.type) ? IDS_TARGET_IS_FOLDER : IDS_TARGET_IS_FILE, {path});
}

void CBackupTask::Transfer(const CDst& dst, const std::wstring& temporaryPath) {
  if (!m_counts) m_counts = CountTargets(*m_targets);
  const auto counters = boost::make_shared<CTransferCounters>(*m_counts, m_ports.clock.TickCount());
  LastRow().transfer = counters;
  if (!IsZip(dst.type)) {
    SetPhase(Phase::Copying);
    const my::CHelpers helpers = HelpersFor(m_ports, {m_task->path, temporaryPath});
    return CopyToFolder(TransferPorts(), helpers, m_task->path, *m_targets, temporaryPath, *counters);
  }
  SetPhase(Phase::Archiving);
  WriteArchive({TransferPorts(), m_ports.process, m_ports.texts},
               {m_archiverPath, m_password, m_task->path, *m_targets, temporaryPath, dst.type, *counters});
}

// Returns false if another run has created the same backup in the meantime; this one is then deleted.
bool CBackupTask::TakeFinalName(const CDst& dst, const std::wstring& temporaryPath) {
  const std::wstring& path = LastRow().destinationPath;
  try {
    RenameFresh(TransferPorts(), temporaryPath, path);
    return true;
  } catch (const my::CException&) {
    if (my::KindIfKnown(m_ports.files, path) != KindOf(dst)) throw;
  }
  const auto kind = IsZip(dst.type) ? CAutoDeleteFile::Kind::File : CAutoDeleteFile::Kind::Folder;
  CAutoDeleteFile(m_ports.files, m_ports.texts, temporaryPath, kind).Delete();
  return false;
}

void CBackupTask::AddRow() {
  CResult row;
  row.task = m_task;
  m_rows.push_back(std::move(row));
}

void CBackupTask::SetPhase(Phase phase) {
  LastRow().phase = phase;
  Notify();
}

CResults CBackupTask::Results() const {
  const my::CAutoLock<my::CAutoCriticalSection> lock(m_publishedLock);
  return m_published;
}

// Publishes copies of the rows that are never changed, so that no thread reads a row while it is written.
void CBackupTask::Publish() {
  const my::CAutoLock<my::CAutoCriticalSection> lock(m_publishedLock);
  // Only the last row may have changed since the last call.
  if (!m_published.empty()) m_published.pop_back();
  while (m_published.size() < m_rows.size()) {
    m_published.push_back(boost::make_shared<CResult>(m_rows[m_published.size()]));
  }
}

void CBackupTask::Notify() {
  Publish();
  if (m_client) m_client->OnProgress(shared_from_this());
}

}  // namespace qlm
