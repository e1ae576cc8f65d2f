// Schedules of the document in the Task Scheduler of the system.
#pragma once

#include "app/command.h"
#include "schedule/schedules.h"

namespace qlm {

// Opens the schedules of the document. Throws IDS_SCHEDULE_SAVE_FIRST if it has no file.
class CCommandSchedules final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

// Returns the schedules that start the runner beside this program. The ports must outlive the object.
CSchedules MakeSchedules(const CAppPorts& ports);

// Opens all schedules, after a question, if one cannot run because its document or program was moved. A
// failure to read them is not shown, because the user has not asked for them.
void OfferToMendSchedules(const CAppContext& context);

// Returns what keeps schedules of the document from running; empty if nothing is known.
std::wstring ScheduleWarning(const CAppContext& context);

}  // namespace qlm
