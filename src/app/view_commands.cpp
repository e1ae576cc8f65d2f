#include "app/view_commands.h"

#include "app/replace_tool.h"
#include "app/windows.h"

namespace qlm {

void CCommandReplace::Execute(bool run) {
  RefuseDuringRun(m_context);  // the open dialog would keep the run from being stopped
  if (run) m_context.replace.Show();
}

void CCommandSetting::Execute(bool run) {
  if (run) m_context.dialogs.ShowSettings(m_designPage);
}

}  // namespace qlm
