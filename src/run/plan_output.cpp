#include "run/plan_output.h"

#include <algorithm>
#include <array>

#include "document/filter.h"
#include "engine/remedy.h"
#include "engine/value_texts.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/message_texts.h"
#include "run/json_values.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

using my::Utf8FromWide;

constexpr auto kOutput = my::IConsole::Stream::Output;

bool HasFailure(const CPlanTask& plan) {
  return std::ranges::any_of(plan.cells, IsFailure, &CPlanCell::action);
}

// Returns whether the row is shown in quiet mode.
bool IsError(const CAdvice& advice) {
  return advice.severity == AdviceSeverity::Error;
}

class CTextPlan : public IPlanOutput {
 public:
  CTextPlan(const CRunnerPorts& ports, bool quiet)
      : m_console(ports.console), m_engine(ports.engine), m_texts(ports.engine.texts), m_quiet(quiet) {}

  void Task(const CPlanTask& plan) override {
    if (m_quiet && !HasFailure(plan)) return;
    Print(L"", Text(IDS_PLAN_TASK, {plan.task->id, plan.task->path, std::to_wstring(plan.counts.counted),
                                    SizeText(m_texts, plan.counts.bytes)}));
    if (plan.newest && !m_quiet) Newest(*plan.newest);
    for (const CPlanCell& cell : plan.cells) {
      if (!m_quiet || IsFailure(cell.action)) Cell(cell);
    }
  }

  void Advice(const CContent& content, const CAdvice& advice) override {
    if (m_quiet && !IsError(advice)) return;
    std::wstring place;
    if (advice.task) place += content.tasks[*advice.task]->id + L" | ";
    if (advice.dst) place += content.dsts[*advice.dst]->folder + L" | ";
    Print(L"", place + my::OneLine(AdviceLine(m_texts, advice)));
  }

  void End(const CPlanSummary& summary) override {
    if (m_quiet) return;
    Print(L"",
          Text(IDS_PLAN_SUMMARY, {std::to_wstring(summary.created), std::to_wstring(summary.skipped),
                                  std::to_wstring(summary.failed), std::to_wstring(summary.notReached)}));
  }

 private:
  static constexpr std::wstring_view kIndent = L"    ";

  void Newest(const CTarget& newest) {
    const std::wstring path = newest.RelativePath();
    Print(kIndent, Text(IDS_PLAN_NEWEST, {my::LocalTimeText(m_engine.clock, newest.LastWriteTime()), path}));
    Print(kIndent, Text(IDS_PLAN_EXCLUDE, {ExcludeLine(path)}));
  }

  void Cell(const CPlanCell& cell) {
    const std::wstring& place = cell.path.empty() ? cell.dst->folder : cell.path;
    std::wstring line = Text(IDS_PLAN_CELL, {m_texts.Text(static_cast<uint32_t>(cell.action)), place});
    if (cell.freeBytes) line += L" | " + Text(IDS_PLAN_FREE, {SizeText(m_texts, *cell.freeBytes)});
    if (cell.error) line += L" | " + my::OneLine(cell.error.message);
    Print(kIndent, line);
    if (cell.error) Print(L"        ", RemedyLine(m_texts, cell.error));
  }

  std::wstring Text(uint32_t id, const std::vector<my::CMsgArg>& args) const {
    return my::MakeText(m_texts, id, args);
  }

  void Print(std::wstring_view indent, const std::wstring& line) {
    m_console.Write(kOutput, std::wstring(indent) + line + L"\n");
  }

  my::IConsole& m_console;
  const CEnginePorts& m_engine;
  const my::IMessageTexts& m_texts;
  bool m_quiet;
};

const char* NameOf(PlanAction action) {
  switch (action) {
    case PlanAction::Create: return "create";
    case PlanAction::Skip: return "skip";
    case PlanAction::Collision: return "collision";
    case PlanAction::Unreachable: return "unreachable";
    case PlanAction::Error: return "error";
    case PlanAction::NotReached: return "not_reached";
  }
  return "";
}

// In the order of the enumerations.
constexpr std::array kSpaces = {"unknown", "enough", "doubtful", "too_little"};
constexpr std::array kSeverities = {"hint", "warning", "error"};
constexpr std::array kKinds = {"name_without_time", "coarse_name", "repeating_name",    "bad_name",
                               "shared_name",       "same_path",   "dst_within_source", "space_in_archive",
                               "no_archiver",       "no_source",   "bad_filter",        "leftover",
                               "other_files",       "no_space",    "no_password"};
static_assert(kKinds.size() == static_cast<size_t>(AdviceKind::NoPassword) + 1);

class CJsonPlan : public IPlanOutput {
 public:
  CJsonPlan(const CRunnerPorts& ports, bool quiet)
      : m_console(ports.console), m_texts(ports.engine.texts), m_quiet(quiet) {}

  void Task(const CPlanTask& plan) override {
    if (m_quiet && !HasFailure(plan)) return;
    const auto& newest = plan.newest;
    const std::wstring newestPath = newest ? newest->RelativePath() : std::wstring();
    Print({{"event", "task"},
           {"task", Utf8FromWide(plan.task->id)},
           {"source", Utf8FromWide(plan.task->path)},
           {"entries", plan.targets->size()},
           {"counted", plan.counts.counted},
           {"excluded", plan.counts.excluded},
           {"bytes", plan.counts.bytes},
           {"newest", IsoTime(newest ? newest->LastWriteTime() : my::CFileTime())},
           {"newest_file", Utf8FromWide(newestPath)},
           {"exclude_line", newest ? Utf8FromWide(ExcludeLine(newestPath)) : ""}});
    for (const CPlanCell& cell : plan.cells) {
      if (!m_quiet || IsFailure(cell.action)) Cell(plan, cell);
    }
  }

  void Advice(const CContent& content, const CAdvice& advice) override {
    if (m_quiet && !IsError(advice)) return;
    nlohmann::ordered_json object = {{"event", "advice"},
                                     {"kind", kKinds[static_cast<size_t>(advice.kind)]},
                                     {"severity", kSeverities[static_cast<size_t>(advice.severity)]},
                                     {"task", nullptr},
                                     {"folder", nullptr},
                                     {"message", Utf8FromWide(my::OneLine(advice.text))}};
    if (advice.task) object["task"] = Utf8FromWide(content.tasks[*advice.task]->id);
    if (advice.dst) object["folder"] = Utf8FromWide(content.dsts[*advice.dst]->folder);
    if (!advice.path.empty()) object["path"] = Utf8FromWide(advice.path);
    Print(object);
  }

  void End(const CPlanSummary& summary) override {
    Print({{"event", "end"},
           {"created", summary.created},
           {"skipped", summary.skipped},
           {"errors", summary.failed},
           {"not_reached", summary.notReached}});
  }

 private:
  void Cell(const CPlanTask& plan, const CPlanCell& cell) {
    nlohmann::ordered_json freeBytes;
    if (cell.freeBytes) freeBytes = *cell.freeBytes;
    Print({{"event", "cell"},
           {"task", Utf8FromWide(plan.task->id)},
           {"folder", Utf8FromWide(cell.dst->folder)},
           {"destination", Utf8FromWide(cell.path)},
           {"type", TypeName(*cell.dst)},
           {"action", NameOf(cell.action)},
           {"error", cell.error.code},
           {"message", Utf8FromWide(my::OneLine(cell.error.message))},
           {"remedy", Utf8FromWide(RemedyLine(m_texts, cell.error))},
           {"space", kSpaces[static_cast<size_t>(cell.space)]},
           {"needed", cell.neededBytes},
           {"free", freeBytes}});
  }

  void Print(const nlohmann::ordered_json& object) {
    m_console.Write(kOutput, my::WideFromUtf8(object.dump()) + L"\n");
  }

  my::IConsole& m_console;
  const my::IMessageTexts& m_texts;
  bool m_quiet;
};

}  // namespace

std::unique_ptr<IPlanOutput> MakeTextPlan(const CRunnerPorts& ports, bool quiet) {
  return std::make_unique<CTextPlan>(ports, quiet);
}

std::unique_ptr<IPlanOutput> MakeJsonPlan(const CRunnerPorts& ports, bool quiet) {
  return std::make_unique<CJsonPlan>(ports, quiet);
}

}  // namespace qlm
