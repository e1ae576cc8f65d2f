// The port to the Task Scheduler of the system. For use by one thread, with COM initialized.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/file_time.h"

namespace my {

// A task of the system. Times are in the user's time zone.
struct CScheduledTask {
  std::wstring name;  // identifies it
  std::wstring xml;   // its definition as the system returns it
  bool enabled = true;
  bool running = false;
  std::optional<CCalendar> nextRun;
  std::optional<CCalendar> lastRun;
  uint32_t lastResult = 0;  // the exit code of the last run, or the HRESULT of a failed start
};

class ITaskScheduler {
 public:
  virtual ~ITaskScheduler() = default;

  // Returns the tasks that the user may see and whose name begins with the prefix. Throws
  // IDS_SCHEDULER_FAILED.
  virtual std::vector<CScheduledTask> Tasks(std::wstring_view prefix) = 0;

  // Creates a task that runs for the current user while signed in. Returns false if a task, perhaps of
  // another user, has the name. Throws IDS_SCHEDULE_ADD_FAILED, IDS_SCHEDULER_FAILED.
  virtual bool Add(const std::wstring& name, const std::wstring& xml) = 0;

  // Replaces the definition of a task. Throws like Add.
  virtual void Change(const std::wstring& name, const std::wstring& xml) = 0;

  // A task that no longer exists is not a failure. Throws IDS_SCHEDULE_REMOVE_FAILED, IDS_SCHEDULER_FAILED.
  virtual void Remove(const std::wstring& name) = 0;

  // Returns the current user in the form of a definition. Throws IDS_SCHEDULER_FAILED.
  virtual std::wstring User() = 0;
};

}  // namespace my
