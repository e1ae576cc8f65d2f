#include "schedule/schedule_xml.h"

#include <array>
#include <cwchar>

#include "platform/xml_layer.h"
#include "support/exception.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {
namespace {

constexpr std::wstring_view kOption = L"--scheduled";
constexpr std::array<const wchar_t*, kWeekdays> kDayNames = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                                             L"Thursday", L"Friday", L"Saturday"};

std::wstring Element(std::wstring_view name, std::wstring_view content) {
  std::wstring element(L"<");
  element.append(name).append(L">").append(content).append(L"</").append(name).append(L">\n");
  return element;
}

std::wstring TextElement(std::wstring_view name, std::wstring_view text) {
  return Element(name, my::EscapedXmlText(text));
}

std::wstring BoolElement(std::wstring_view name, bool value) {
  return Element(name, value ? L"true" : L"false");
}

std::wstring DaysXml(uint32_t weekdays) {
  std::wstring days;
  for (uint32_t day = 0; day < kWeekdays; ++day) {
    if ((weekdays >> day & 1) != 0) days.append(L"<").append(kDayNames[day]).append(L"/>");
  }
  return days;
}

std::wstring TriggerXml(const CSchedule& schedule, const std::wstring& user) {
  const std::wstring start = TextElement(L"StartBoundary", my::CalendarText(schedule.start, L'-', L'T'));
  switch (schedule.kind) {
    case ScheduleKind::Once: return Element(L"TimeTrigger", start);
    case ScheduleKind::Daily:
      return Element(L"CalendarTrigger", start + Element(L"ScheduleByDay", Element(L"DaysInterval", L"1")));
    case ScheduleKind::Weekly:
      return Element(
          L"CalendarTrigger",
          start + Element(L"ScheduleByWeek", Element(L"WeeksInterval", L"1") +
                                                 Element(L"DaysOfWeek", DaysXml(schedule.weekdays))));
    // Without the user the trigger would need the rights of an administrator.
    case ScheduleKind::Logon: return Element(L"LogonTrigger", TextElement(L"UserId", user));
    case ScheduleKind::Idle: return L"<IdleTrigger/>\n";
  }
  return {};
}

std::wstring SettingsXml(const CSchedule& schedule) {
  return BoolElement(L"DisallowStartIfOnBatteries", !schedule.startsOnBattery) +
         BoolElement(L"StopIfGoingOnBatteries", false) +
         BoolElement(L"StartWhenAvailable", schedule.runsMissed) +
         Element(L"MultipleInstancesPolicy", L"IgnoreNew") +
         Element(L"IdleSettings", BoolElement(L"StopOnIdleEnd", false)) +
         Element(L"ExecutionTimeLimit", L"PT0S");
}

std::wstring Arguments(const std::wstring& documentPath) {
  return std::wstring(kOption).append(L" \"").append(documentPath).append(L"\"");
}

// Returns the text of a descendant; empty if there is none.
std::wstring TextAt(const my::IXmlNode& node, std::initializer_list<const wchar_t*> path) {
  std::unique_ptr<my::IXmlNode> found;
  const my::IXmlNode* at = &node;
  for (const wchar_t* const name : path) {
    auto next = at->Select(name);
    if (!next) return {};
    found = std::move(next);
    at = found.get();
  }
  return at->Text();
}

// A time with a zone is not ours.
std::optional<my::CCalendar> ParseStart(const std::wstring& text) {
  const auto utc = my::ParseUtcText(text + L"Z");
  if (!utc) return {};
  return my::UtcCalendar(*utc);
}

uint32_t ParseDays(const my::IXmlNode& days) {
  uint32_t weekdays = 0;
  for (uint32_t day = 0; day < kWeekdays; ++day) {
    if (days.Select(kDayNames[day])) weekdays |= 1u << day;
  }
  return weekdays;
}

std::optional<CSchedule> ParseCalendar(const my::IXmlNode& trigger) {
  CSchedule schedule;
  if (TextAt(trigger, {L"ScheduleByDay", L"DaysInterval"}) == L"1") return schedule;
  const auto weeks = trigger.Select(L"ScheduleByWeek");
  const auto days = weeks ? weeks->Select(L"DaysOfWeek") : nullptr;
  if (!days || TextAt(*weeks, {L"WeeksInterval"}) != L"1") return {};
  schedule.kind = ScheduleKind::Weekly;
  schedule.weekdays = ParseDays(*days);
  return schedule;
}

std::optional<CSchedule> ParseTrigger(const my::IXmlNode& trigger) {
  const std::wstring name = trigger.Name();
  if (trigger.Select(L"Repetition") || trigger.Select(L"EndBoundary") || trigger.Select(L"RandomDelay") ||
      trigger.Select(L"Delay") || TextAt(trigger, {L"Enabled"}) == L"false")
    return {};
  CSchedule schedule;
  if (name == L"LogonTrigger") {
    schedule.kind = ScheduleKind::Logon;
    return schedule;
  }
  if (name == L"IdleTrigger") {
    schedule.kind = ScheduleKind::Idle;
    return schedule;
  }
  const auto start = ParseStart(TextAt(trigger, {L"StartBoundary"}));
  if (!start) return {};
  if (name == L"CalendarTrigger") {
    const auto calendar = ParseCalendar(trigger);
    if (!calendar) return {};
    schedule = *calendar;
  } else if (name == L"TimeTrigger") {
    schedule.kind = ScheduleKind::Once;
  } else {
    return {};
  }
  schedule.start = *start;
  return schedule;
}

std::optional<CSchedule> ParseSchedule(const my::IXmlNode& task) {
  const auto triggers = task.Select(L"Triggers");
  if (!triggers) return {};
  const auto all = triggers->Children();
  if (all.size() != 1) return {};
  auto schedule = ParseTrigger(*all.front());
  if (!schedule) return {};
  schedule->runsMissed = TextAt(task, {L"Settings", L"StartWhenAvailable"}) == L"true";
  // The system leaves out what has its default.
  schedule->startsOnBattery = TextAt(task, {L"Settings", L"DisallowStartIfOnBatteries"}) == L"false";
  return schedule;
}

std::optional<CScheduledRun> ParseRun(const my::IXmlNode& task) {
  const std::wstring program = TextAt(task, {L"Actions", L"Exec", L"Command"});
  const std::wstring arguments = TextAt(task, {L"Actions", L"Exec", L"Arguments"});
  if (program.empty() || !arguments.starts_with(kOption)) return {};
  const size_t first = arguments.find(L'"');
  const size_t last = arguments.rfind(L'"');
  if (first == arguments.npos || last <= first + 1) return {};
  return CScheduledRun{std::wstring(my::Trim(program, L"\"")), arguments.substr(first + 1, last - first - 1)};
}

// Returns the definition without its declaration, which names another encoding, and without the namespace,
// because elements are found by their names.
std::wstring WithoutHead(const std::wstring& xml) {
  const size_t from = xml.find(L"<Task");
  const size_t to = xml.find(L'>', from);
  if (to == xml.npos) return {};
  return L"<Task>" + xml.substr(to + 1);
}

void ReplaceContent(std::wstring& xml, std::wstring_view name, const std::wstring& text) {
  const std::wstring begin = L"<" + std::wstring(name) + L">";
  const size_t from = xml.find(begin);
  const size_t to = xml.find(L"</" + std::wstring(name) + L">");
  if (from == xml.npos || to == xml.npos) return;
  xml.replace(from + begin.size(), to - from - begin.size(), my::EscapedXmlText(text));
}

}  // namespace

std::wstring ScheduleXml(const CSchedule& schedule, const CScheduledRun& run, const std::wstring& user,
                         const std::wstring& description) {
  const std::wstring principal = TextElement(L"UserId", user) + Element(L"LogonType", L"InteractiveToken") +
                                 Element(L"RunLevel", L"LeastPrivilege");
  const std::wstring action = Element(L"Exec", TextElement(L"Command", run.runnerPath) +
                                                   TextElement(L"Arguments", Arguments(run.documentPath)));
  return L"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n"
         L"<Task version=\"1.2\" xmlns=\"http://schemas.microsoft.com/windows/2004/02/mit/task\">\n" +
         Element(L"RegistrationInfo",
                 TextElement(L"Author", user) + TextElement(L"Description", description)) +
         Element(L"Triggers", TriggerXml(schedule, user)) +
         Element(L"Principals", L"<Principal id=\"Author\">\n" + principal + L"</Principal>\n") +
         Element(L"Settings", SettingsXml(schedule)) + L"<Actions Context=\"Author\">\n" + action +
         L"</Actions>\n</Task>\n";
}

std::optional<CReadSchedule> ParseScheduleXml(my::IXmlDom& dom, const std::wstring& xml) {
  try {
    const auto document = dom.Create();
    document->LoadBytes(my::Utf8FromWide(WithoutHead(xml)), {});
    const auto task = document->Root(L"Task");
    const auto run = task ? ParseRun(*task) : std::nullopt;
    if (!run) return {};
    return CReadSchedule{*run, ParseSchedule(*task)};
  } catch (const my::CException&) {
    return {};
  }
}

std::wstring WithRun(std::wstring xml, const CScheduledRun& run) {
  ReplaceContent(xml, L"Command", run.runnerPath);
  ReplaceContent(xml, L"Arguments", Arguments(run.documentPath));
  return xml;
}

}  // namespace qlm
