// The schedules of backup documents in the Task Scheduler of the system.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/task_scheduler.h"
#include "schedule/schedule_xml.h"

namespace my {
class IFileSystem;
class IMessageTexts;
class IXmlDom;
}  // namespace my

namespace qlm {

enum class ScheduleFault { None, NoDocument, NoRunner };

// A task of the system that runs a document.
struct CDocumentSchedule {
  my::CScheduledTask task;
  CReadSchedule read;
  ScheduleFault fault = ScheduleFault::None;
};

struct CSchedulePorts {
  my::ITaskScheduler& scheduler;
  my::IXmlDom& dom;
  my::IFileSystem& files;
  const my::IMessageTexts& texts;
};

// For one thread. Every function throws what the scheduler throws.
class CSchedules {
 public:
  // The ports must outlive the object. `runnerPath` is the runner beside this program.
  CSchedules(const CSchedulePorts& ports, std::wstring runnerPath)
      : m_ports(ports), m_runnerPath(std::move(runnerPath)) {}

  // Returns the schedules of all documents, sorted by name. Documents and programs on the network or on a
  // drive that is not there now are not looked for.
  std::vector<CDocumentSchedule> All();

  // Throws IDS_SCHEDULE_EXISTS_ALREADY if every name for the document is taken.
  void Add(const std::wstring& documentPath, const CSchedule& schedule);
  void Change(const CDocumentSchedule& old, const CSchedule& schedule);
  void Remove(const CDocumentSchedule& schedule) { m_ports.scheduler.Remove(schedule.task.name); }

  // Removes the schedules that start the runner beside this program; those of other copies stay.
  // Continues after a failure, and throws the first one at the end.
  void RemoveOwn();

  // Makes the task start the runner beside this program with that document; its times stay as they are.
  void Mend(const CDocumentSchedule& schedule, const std::wstring& documentPath);

 private:
  ScheduleFault FaultOf(const CScheduledRun& run) const;
  std::wstring Xml(const CSchedule& schedule, const std::wstring& documentPath);

  CSchedulePorts m_ports;
  std::wstring m_runnerPath;
};

// Returns the schedules of this document.
std::vector<CDocumentSchedule> SchedulesOf(const std::vector<CDocumentSchedule>& all,
                                           const std::wstring& documentPath);

}  // namespace qlm
