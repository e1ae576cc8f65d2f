#include "app/plan_commands.h"

#include <unordered_set>
#include <utility>

#include "app/run_commands.h"
#include "app/windows.h"
#include "document/document.h"
#include "engine/archiver_location.h"
#include "settings/settings.h"

namespace qlm {
namespace {

void RefusePlan(const CAppContext& context) {
  RefuseDuringRun(context);
  RefuseDuringReplace(context);
}

}  // namespace

void CCommandPlan::Execute(bool run) {
  RefusePlan(m_context);
  CPlanIds ids;
  if (m_selectedOnly) {
    for (const size_t row : RequireSelectedTasks(m_context))
      ids.push_back(m_context.document.Tasks()[row]->id);
  }
  if (run) m_context.dialogs.ShowPlan(MakePlanRequest(m_context, ids), ids);
}

CPlanRequest MakePlanRequest(const CAppContext& context, const CPlanIds& ids) {
  RefusePlan(context);
  const CContent& content = context.document.Content();
  const std::unordered_set<std::wstring> wanted(ids.begin(), ids.end());
  std::vector<size_t> rows;
  std::vector<CTaskPtr> tasks;
  for (size_t row = 0; row < content.tasks.size(); ++row) {
    if (!wanted.empty() && !wanted.contains(content.tasks[row]->id)) continue;
    rows.push_back(row);
    tasks.push_back(content.tasks[row]);
  }
  RequireDst(context, tasks);
  const CAppPorts& ports = context.ports;
  CPlanRequest request{MakePlanScope(content, rows), context.settings.archive.sevenZipPath};
  if (!AnyDst(tasks, IsZip)) return request;
  my::IFileSystem& files = ports.engine.files;
  request.archiverMissing = IsArchiverMissing(files, ports.folders, request.archiverPath);
  if (request.archiverPath.empty()) request.archiverPath = FindArchiver(files, ports.folders);
  return request;
}

}  // namespace qlm
