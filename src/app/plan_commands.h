#pragma once

#include <string>
#include <vector>

#include "app/command.h"
#include "app/plan_worker.h"

namespace qlm {

// IDs of the tasks to plan; empty for all tasks of the document.
using CPlanIds = std::vector<std::wstring>;

// Opens the window with the plan of the document or of the selected tasks.
class CCommandPlan final : public CCommand {
 public:
  CCommandPlan(CAppContext& context, bool selectedOnly) : CCommand(context), m_selectedOnly(selectedOnly) {}

  // Throws IDS_REFUSED_DURING_RUN, IDS_REFUSED_DURING_REPLACE, IDS_NO_TASKS if no task to plan has a
  // destination, and CListException with IDS_SELECT_TASKS.
  void Execute(bool run) override;

 private:
  bool m_selectedOnly;
};

// Returns the request for a plan of the document as it is now. IDs that it no longer has are left out. Throws
// what the command throws.
CPlanRequest MakePlanRequest(const CAppContext& context, const CPlanIds& ids);

}  // namespace qlm
