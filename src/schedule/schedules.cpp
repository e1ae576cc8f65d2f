#include "schedule/schedules.h"

#include <algorithm>
#include <iterator>

#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "support/exception.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr std::wstring_view kPrefix = L"Quillmoor - ";
constexpr int kMostOfOneName = 99;

// Returns whether the path names a file that is missing although its drive is there.
bool IsGone(my::IFileSystem& files, const std::wstring& path) {
  if (my::IsOnNetwork(path)) return false;
  std::wstring_view root = path;
  while (!my::ParentPath(root).empty()) root = my::ParentPath(root);
  return my::KindIfKnown(files, std::wstring(root)) == my::PathKind::Folder &&
         my::KindIfKnown(files, path) == my::PathKind::None;
}

// Documents of the same name get numbers.
std::wstring TaskName(const std::wstring& documentPath, int number) {
  std::wstring name(kPrefix);
  name += my::SplitExtension(my::LastComponent(documentPath)).stem;
  if (number > 1) name += L" (" + std::to_wstring(number) + L")";
  return name;
}

}  // namespace

std::vector<CDocumentSchedule> CSchedules::All() {
  std::vector<CDocumentSchedule> all;
  for (my::CScheduledTask& task : m_ports.scheduler.Tasks(kPrefix)) {
    auto read = ParseScheduleXml(m_ports.dom, task.xml);
    if (!read) continue;
    const ScheduleFault fault = FaultOf(read->run);
    all.push_back({std::move(task), std::move(*read), fault});
  }
  std::ranges::sort(all, {}, [](const CDocumentSchedule& schedule) { return schedule.task.name; });
  return all;
}

void CSchedules::Add(const std::wstring& documentPath, const CSchedule& schedule) {
  const std::wstring xml = Xml(schedule, documentPath);
  for (int number = 1; number <= kMostOfOneName; ++number) {
    if (m_ports.scheduler.Add(TaskName(documentPath, number), xml)) return;
  }
  throw my::CException(IDS_SCHEDULE_EXISTS_ALREADY);
}

void CSchedules::Change(const CDocumentSchedule& old, const CSchedule& schedule) {
  m_ports.scheduler.Change(old.task.name, Xml(schedule, old.read.run.documentPath));
}

void CSchedules::RemoveOwn() {
  const std::wstring runner = my::ComparablePath(m_runnerPath);
  std::optional<my::CException> failure;
  for (const my::CScheduledTask& task : m_ports.scheduler.Tasks(kPrefix)) {
    const auto read = ParseScheduleXml(m_ports.dom, task.xml);
    if (!read || my::ComparablePath(read->run.runnerPath) != runner) continue;
    try {
      m_ports.scheduler.Remove(task.name);
    } catch (const my::CException& refused) {
      if (!failure) failure = refused;
    }
  }
  if (failure) throw my::CException(*failure);
}

void CSchedules::Mend(const CDocumentSchedule& schedule, const std::wstring& documentPath) {
  m_ports.scheduler.Change(schedule.task.name, WithRun(schedule.task.xml, {m_runnerPath, documentPath}));
}

ScheduleFault CSchedules::FaultOf(const CScheduledRun& run) const {
  if (IsGone(m_ports.files, run.runnerPath)) return ScheduleFault::NoRunner;
  return IsGone(m_ports.files, run.documentPath) ? ScheduleFault::NoDocument : ScheduleFault::None;
}

std::wstring CSchedules::Xml(const CSchedule& schedule, const std::wstring& documentPath) {
  return ScheduleXml(schedule, {m_runnerPath, documentPath}, m_ports.scheduler.User(),
                     m_ports.texts.Text(IDS_SCHEDULE_DESCRIPTION));
}

std::vector<CDocumentSchedule> SchedulesOf(const std::vector<CDocumentSchedule>& all,
                                           const std::wstring& documentPath) {
  const std::wstring wanted = my::ComparablePath(documentPath);
  std::vector<CDocumentSchedule> found;
  std::ranges::copy_if(all, std::back_inserter(found), [&wanted](const CDocumentSchedule& schedule) {
    return my::ComparablePath(schedule.read.run.documentPath) == wanted;
  });
  return found;
}

}  // namespace qlm
