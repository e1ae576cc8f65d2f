#include "app/view_commands.h"

#include "app/file_questions.h"
#include "app/replace_tool.h"
#include "app/windows.h"
#include "document/document.h"

namespace qlm {

void CCommandReplace::Execute(bool run) {
  RefuseDuringRun(m_context);  // while the replace tool is open, the run could not be stopped
  if (run) m_context.replace.Show();
}

void CCommandSetting::Execute(bool run) {
  if (run) m_context.dialogs.ShowSettings(m_designPage);
}

void OpenResults(CAppContext& context) {
  context.window.OpenResults();
}

void OpenHistory(CAppContext& context) {
  context.window.OpenHistory();
}

void ShowAbout(CAppContext& context) {
  context.dialogs.ShowAbout();
}

void FocusOtherList(CAppContext& context) {
  context.window.FocusOtherList();
}

void ToggleFullScreen(CAppContext& context) {
  context.window.ToggleFullScreen();
}

void CloseWindow(CAppContext& context) {
  context.window.PostClose();
}

void CheckFilter(CAppContext& context) {
  const CTasks& tasks = context.document.Tasks();
  const auto row = context.window.TaskList().FocusedRow();
  const bool isTask = row && *row < tasks.size();
  const std::wstring source = isTask ? tasks[*row]->path : std::wstring();
  std::wstring filter = isTask ? tasks[*row]->filterPath : std::wstring();
  if (filter.empty())
    filter = context.dialogs.AskPath(FilterQuestion(context.ports.engine.texts, {})).value_or(L"");
  if (!filter.empty()) context.dialogs.ShowFilter(filter, source);
}

}  // namespace qlm
