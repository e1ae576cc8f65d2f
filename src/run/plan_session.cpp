#include "run/plan_session.h"

#include <set>

#include "engine/archiver_location.h"
#include "engine/plan_advice.h"
#include "engine/task_base.h"
#include "platform/console.h"
#include "run/archive_choice.h"
#include "run/exit_codes.h"
#include "run/plan_output.h"
#include "run/warnings.h"
#include "text_ids.h"

namespace qlm {
namespace {

class CInterrupt : public my::IStopQuery {
 public:
  explicit CInterrupt(const my::IConsole& console) : m_console(console) {}
  bool IsStopRequested() const override { return m_console.InterruptRequested(); }

 private:
  const my::IConsole& m_console;
};

// Returns the tasks with the destinations that they use.
CContent ContentOf(const CDocument& document, const std::vector<CTaskPtr>& tasks) {
  CContent content;
  std::set<CDstPtr> used;
  for (const CTaskPtr& task : tasks) {
    content.tasks.Append(task);
    used.insert(task->dsts.begin(), task->dsts.end());
  }
  for (const CDstPtr& dst : document.Dsts()) {
    if (used.contains(dst)) content.dsts.Append(dst);
  }
  return content;
}

}  // namespace

int PrintPlan(const CRunnerPorts& ports, const COptions& options, const CDocument& document,
              const std::vector<CTaskPtr>& tasks) {
  const CPlannedArchive archive = PlanArchive(ports, options, tasks);
  const CInterrupt stop(ports.console);
  const auto output = options.json ? MakeJsonPlan(ports, options.quiet) : MakeTextPlan(ports, options.quiet);
  const CContent content = ContentOf(document, tasks);
  CPlanner planner(ports.engine, archive.archiverPath, &stop);
  CPlanSummary summary;
  try {
    const bool missing = IsArchiverMissing(ports.engine.files, ports.folders, archive.archiverPath);
    const CAdviceRequest request{AdviceDepth::Network, missing, &stop, archive.passwordMissing};
    for (const CAdvice& advice : FindAdvice(content, ports.engine, request)) output->Advice(content, advice);
    for (const CTaskPtr& task : tasks) {
      const CPlanTask plan = planner.Plan(task);
      WarnOfUnlisted(ports, *task, *plan.targets);
      output->Task(plan);
      for (const CAdvice& advice : FindPlanAdvice(content, plan, ports.engine, &stop))
        output->Advice(content, advice);
      Count(summary, plan);
    }
  } catch (const my::CException& failure) {
    if (failure.Id() != IDS_STOPPED) throw;
    return kExitStopped;
  }
  output->End(summary);
  return summary.failed == 0 ? kExitDone : kExitErrors;
}

}  // namespace qlm
