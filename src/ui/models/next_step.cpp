#include "ui/models/next_step.h"

#include <algorithm>

#include "document/document.h"
#include "text_ids.h"

namespace qlm {

uint32_t NextStep(const CDocument& document, const CRows& selectedTasks, bool running) {
  if (running) return IDS_NEXT_RUNNING;
  const CTasks& tasks = document.Tasks();
  if (tasks.empty()) return IDS_NEXT_ADD_TASK;
  if (document.Dsts().empty()) return IDS_NEXT_ADD_DST;
  if (selectedTasks.empty()) return IDS_NEXT_SELECT_TASK;
  // A row may be missing between a document change and the update of the selection.
  const auto lacksDst = [&](size_t row) { return row < tasks.size() && tasks[row]->dsts.empty(); };
  const bool anyLacks = std::any_of(selectedTasks.begin(), selectedTasks.end(), lacksDst);
  return anyLacks ? IDS_NEXT_CHECK_DST : IDS_NEXT_RUN;
}

}  // namespace qlm
