// The form of schedules in the Task Scheduler: its XML definition of a task.
#pragma once

#include <optional>
#include <string>

#include "schedule/schedule.h"

namespace my {
class IXmlDom;
}

namespace qlm {

// What a task starts: the runner with a document.
struct CScheduledRun {
  std::wstring runnerPath;
  std::wstring documentPath;

  friend bool operator==(const CScheduledRun&, const CScheduledRun&) = default;
};

// A definition that was read.
struct CReadSchedule {
  CScheduledRun run;
  std::optional<CSchedule> schedule;  // not set if it cannot be expressed, because the user changed it there
};

// Returns the definition of a task for this user. The run is never ended by the system: not when it takes
// long, the computer is used again, or mains power fails. `description` is shown by the Task Scheduler.
std::wstring ScheduleXml(const CSchedule& schedule, const CScheduledRun& run, const std::wstring& user,
                         const std::wstring& description);

// Returns nullopt if the definition is not a run of a document by the runner.
std::optional<CReadSchedule> ParseScheduleXml(my::IXmlDom& dom, const std::wstring& xml);

// Returns the definition with another run; everything else stays as it is.
std::wstring WithRun(std::wstring xml, const CScheduledRun& run);

}  // namespace qlm
