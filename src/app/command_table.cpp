#include "app/command_table.h"

#include <boost/smart_ptr/make_shared.hpp>

#include "app/command_line.h"
#include "command_ids.h"
#include "document/document.h"
#include "text_ids.h"

namespace qlm {

CCommandTable::CCommandTable(CAppContext& context, const std::wstring& commandLine)
    : init(boost::make_shared<CCommandInit>(context, quit, commandLine)),
      quit(boost::make_shared<CCommandQuit>(context)),
      exec(boost::make_shared<CCommandExec>(context, RunKind::Document)),
      execAndPowerOff(boost::make_shared<CCommandExec>(context, RunKind::DocumentThenPowerOff)),
      execSelected(boost::make_shared<CCommandExec>(context, RunKind::SelectedTasks)),
      plan(boost::make_shared<CCommandPlan>(context, false)),
      planSelected(boost::make_shared<CCommandPlan>(context, true)),
      powerOff(boost::make_shared<CCommandPowerOff>(context)),
      keepPower(boost::make_shared<CCommandKeepPower>(context)),
      newDocument(boost::make_shared<CCommandNew>(context)),
      open(boost::make_shared<CCommandOpen>(context, false)),
      append(boost::make_shared<CCommandOpen>(context, true)),
      save(boost::make_shared<CCommandSave>(context, false)),
      saveAs(boost::make_shared<CCommandSave>(context, true)),
      replace(boost::make_shared<CCommandReplace>(context)),
      setting(boost::make_shared<CCommandSetting>(context, false)),
      design(boost::make_shared<CCommandSetting>(context, true)),
      taskTargets(boost::make_shared<CCommandTaskTargets>(context)),
      explorerSrc(boost::make_shared<CCommandExplorerSrc>(context, context.document.Tasks(),
                                                          context.window.TaskList(), &SourceFolderOf, false)),
      explorerDst(boost::make_shared<CCommandExplorerDst>(context, context.document.Dsts(),
                                                          context.window.DstList(), &FolderOf, true)),
      schedules(boost::make_shared<CCommandSchedules>(context)),
      openUrl(boost::make_shared<CCommandOpenUrl>(context)),
      firstBackup(boost::make_shared<CCommandManual>(context, L"first-backup.html")),
      checkFilter(boost::make_shared<CCommandCheckFilter>(
          context, CSingleCommandLineParser(commandLine).FilterToCheck())) {}

CCommand* CCommandTable::Find(uint32_t id) {
  switch (id) {
    case ID_RUN: return exec.get();
    case ID_RUN_POWER_OFF: return execAndPowerOff.get();
    case ID_RUN_SELECTED: return execSelected.get();
    case ID_PLAN: return plan.get();
    case ID_PLAN_SELECTED: return planSelected.get();
    case ID_POWER_OFF: return powerOff.get();
    case ID_KEEP_POWER: return keepPower.get();
    case ID_NEW: return newDocument.get();
    case ID_OPEN: return open.get();
    case ID_ADD_FILE: return append.get();
    case ID_SAVE: return save.get();
    case ID_SAVE_AS: return saveAs.get();
    case ID_REPLACE: return replace.get();
    case ID_SETTINGS: return setting.get();
    case ID_DESIGN: return design.get();
    case ID_TASK_TARGETS: return taskTargets.get();
    case ID_EXPLORER_SRC: return explorerSrc.get();
    case ID_EXPLORER_DST: return explorerDst.get();
    case ID_SCHEDULES: return schedules.get();
    case ID_HOME_PAGE: openUrl->SetPage(IDS_HOME_PAGE_URL); return openUrl.get();
    case ID_USAGE_PAGE: openUrl->SetPage(IDS_USAGE_PAGE_URL); return openUrl.get();
    case ID_FIRST_BACKUP: return firstBackup.get();
    case ID_CHECK_GIVEN_FILTER: return checkFilter.get();
    default: return nullptr;
  }
}

}  // namespace qlm
