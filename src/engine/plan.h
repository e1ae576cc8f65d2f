// The plan: what a run would do now with each task and destination. Nothing is created.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "document/task.h"
#include "engine/backup_task.h"
#include "engine/transfer_plan.h"

namespace qlm {

// The value is the id of its text.
enum class PlanAction : uint32_t {
  Create = IDS_PLAN_CREATE,
  Skip = IDS_PLAN_SKIP,                // a backup of this name exists
  Collision = IDS_PLAN_COLLISION,      // something else of this name exists
  Unreachable = IDS_PLAN_UNREACHABLE,  // the destination cannot be reached
  Error = IDS_PLAN_ERROR,
  NotReached = IDS_PLAN_NOT_REACHED  // a run ends the task at an earlier destination
};

enum class PlanSpace {
  Unknown,
  Enough,
  Doubtful,  // enough only if archives become smaller than their files
  TooLittle
};

// One task and one of its destinations.
struct CPlanCell {
  PlanAction action = PlanAction::NotReached;
  CDstPtr dst;             // the object in the document
  std::wstring path = {};  // of the backup; empty if it is not known
  my::CSimpleErr error = {};
  PlanSpace space = PlanSpace::Unknown;
  uint64_t neededBytes = 0;  // on the volume, by this backup and those before it
  std::optional<uint64_t> freeBytes =
      {};  // on the volume before the run; not set if nothing would be created
};

struct CPlanTask {
  CTaskPtr task;  // the object in the document
  CTargetsPtr targets;
  CTargetCounts counts;
  std::optional<CTarget> newest;  // the file whose time is in the names; an entry of `targets`
  std::vector<CPlanCell> cells;   // in the order of the task's destinations
};

// Plans tasks in the order of a run: what an earlier task creates exists for the later ones. For one thread.
class CPlanner {
 public:
  // `stop` may be null. All arguments must outlive the object.
  CPlanner(const CEnginePorts& ports, const std::wstring& archiverPath, const my::IStopQuery* stop);

  // Runs the job of the task up to its transfers. Throws IDS_STOPPED.
  CPlanTask Plan(const CTaskPtr& task);

 private:
  CPlanCell CellOf(const CResult& row, const CDstPtr& dst, uint64_t bytes);
  void AddSpace(CPlanCell& cell, uint64_t bytes);

  // The bytes that the planned backups of one volume need.
  struct CDemand {
    uint64_t least = 0;  // folders only
    uint64_t most = 0;   // if archives are as large as their files
  };

  CEnginePorts m_ports;
  const std::wstring& m_archiverPath;
  const my::IStopQuery* m_stop;
  CTransferPlan m_transfers;
  std::map<std::wstring, CDemand> m_demands;  // by volume
};

// Returns whether a run would report an error for this cell.
bool IsFailure(PlanAction action);

struct CPlanSummary {
  size_t created = 0;
  size_t skipped = 0;
  size_t failed = 0;
  size_t notReached = 0;
};

void Count(CPlanSummary& summary, const CPlanTask& task);

}  // namespace qlm
