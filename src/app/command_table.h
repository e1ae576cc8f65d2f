// The commands of the program, by id.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

#include "app/document_commands.h"
#include "app/explorer_commands.h"
#include "app/manual_commands.h"
#include "app/plan_commands.h"
#include "app/power_off.h"
#include "app/run_commands.h"
#include "app/schedule_commands.h"
#include "app/start_commands.h"
#include "app/view_commands.h"

namespace qlm {

struct CCommandTable {
  // `commandLine` is the whole command line of the process.
  CCommandTable(CAppContext& context, const std::wstring& commandLine);

  // Returns the command with this id (ID_...), and sets the page of openUrl. Null for other ids. Commands for
  // recent documents are created when used and are not in the table.
  CCommand* Find(uint32_t id);

  boost::shared_ptr<CCommandInit> init;
  boost::shared_ptr<CCommandQuit> quit;
  boost::shared_ptr<CCommandExec> exec;
  boost::shared_ptr<CCommandExec> execAndPowerOff;
  boost::shared_ptr<CCommandExec> execSelected;
  boost::shared_ptr<CCommandPlan> plan;
  boost::shared_ptr<CCommandPlan> planSelected;
  boost::shared_ptr<CCommandPowerOff> powerOff;
  boost::shared_ptr<CCommandKeepPower> keepPower;
  boost::shared_ptr<CCommandNew> newDocument;
  boost::shared_ptr<CCommandOpen> open;
  boost::shared_ptr<CCommandOpen> append;
  boost::shared_ptr<CCommandSave> save;
  boost::shared_ptr<CCommandSave> saveAs;
  boost::shared_ptr<CCommandReplace> replace;
  boost::shared_ptr<CCommandSetting> setting;
  boost::shared_ptr<CCommandSetting> design;
  boost::shared_ptr<CCommandTaskTargets> taskTargets;
  boost::shared_ptr<CCommandExplorerSrc> explorerSrc;
  boost::shared_ptr<CCommandExplorerDst> explorerDst;
  boost::shared_ptr<CCommandSchedules> schedules;
  boost::shared_ptr<CCommandOpenUrl> openUrl;
  boost::shared_ptr<CCommandManual> firstBackup;
  boost::shared_ptr<CCommandCheckFilter> checkFilter;
};

}  // namespace qlm
