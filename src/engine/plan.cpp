#include "engine/plan.h"

#include "platform/file_system.h"
#include "text_ids.h"

namespace qlm {
namespace {

PlanAction ActionOf(const CResult& row) {
  const my::CSimpleErr& error = row.error;
  if (!error) return row.phase == Phase::Skipped ? PlanAction::Skip : PlanAction::Create;
  if (error.code == IDS_TARGET_IS_FILE || error.code == IDS_TARGET_IS_FOLDER) return PlanAction::Collision;
  const auto missing = static_cast<uint32_t>(my::CSystemError::FromWin32(my::kErrorPathNotFound).hresult);
  const bool noRoot = error.code == IDS_CREATE_FOLDER_FAILED && error.detail == missing;
  // The filter and the source are read before there is a path.
  if (noRoot || (error.code == IDS_PATH_UNREADABLE && !row.destinationPath.empty()))
    return PlanAction::Unreachable;
  return PlanAction::Error;
}

}  // namespace

CPlanner::CPlanner(const CEnginePorts& ports, const std::wstring& archiverPath, const my::IStopQuery* stop)
    : m_ports(ports), m_archiverPath(archiverPath), m_stop(stop), m_transfers(ports.files) {}

CPlanTask CPlanner::Plan(const CTaskPtr& task) {
  const auto job = boost::make_shared<CBackupTask>(m_ports, CBackupJob{*task, m_archiverPath, {}});
  job->SetStopQuery(m_stop);
  job->SetPlan(&m_transfers);
  job->Run();
  if (job->Error().code == IDS_STOPPED) throw my::CException(IDS_STOPPED);
  const CResults rows = job->Results();
  CPlanTask plan;
  plan.task = task;
  plan.targets = rows.front()->targets;
  plan.counts = CountTargets(*plan.targets);
  plan.newest = NewestTarget(*plan.targets);
  for (size_t i = 0; i < task->dsts.size(); ++i) {
    plan.cells.push_back(i < rows.size() ? CellOf(*rows[i], task->dsts[i], plan.counts.bytes)
                                         : CPlanCell{PlanAction::NotReached, task->dsts[i]});
  }
  return plan;
}

CPlanCell CPlanner::CellOf(const CResult& row, const CDstPtr& dst, uint64_t bytes) {
  CPlanCell cell{ActionOf(row), dst, row.destinationPath, row.error};
  if (cell.action == PlanAction::Create) AddSpace(cell, bytes);
  return cell;
}

// The backups of a run are created one after another, so each needs room beside those before it.
void CPlanner::AddSpace(CPlanCell& cell, uint64_t bytes) {
  const auto volume = m_transfers.VolumeOf(cell.path);
  if (!volume) return;
  CDemand& demand = m_demands[volume->key];
  demand.most += bytes;
  if (!IsZip(cell.dst->type)) demand.least += bytes;
  cell.freeBytes = volume->freeBytes;
  cell.neededBytes = demand.least > volume->freeBytes ? demand.least : demand.most;
  const PlanSpace ifTight = demand.least > volume->freeBytes ? PlanSpace::TooLittle : PlanSpace::Doubtful;
  cell.space = demand.most > volume->freeBytes ? ifTight : PlanSpace::Enough;
}

bool IsFailure(PlanAction action) {
  return action == PlanAction::Collision || action == PlanAction::Unreachable || action == PlanAction::Error;
}

void Count(CPlanSummary& summary, const CPlanTask& task) {
  for (const CPlanCell& cell : task.cells) {
    if (cell.action == PlanAction::Create) ++summary.created;
    if (cell.action == PlanAction::Skip) ++summary.skipped;
    if (IsFailure(cell.action)) ++summary.failed;
    if (cell.action == PlanAction::NotReached) ++summary.notReached;
  }
}

}  // namespace qlm
