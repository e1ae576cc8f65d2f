#include "run/history_output.h"

#include <nlohmann/json.hpp>

#include "engine/run_state.h"
#include "history/history_codec.h"
#include "history/history_file.h"
#include "history/task_history.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "run/exit_codes.h"
#include "run/warnings.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

using Json = nlohmann::ordered_json;

constexpr auto kOutput = my::IConsole::Stream::Output;

void PrintJson(my::IConsole& console, const Json& object) {
  console.Write(kOutput, my::WideFromUtf8(object.dump()) + L"\n");
}

Json TaskJson(const CTaskKey& key, const CTaskHistory& task, my::CFileTime now) {
  Json lastSuccess;
  if (task.lastSuccess) lastSuccess = my::Utf8FromWide(my::UtcText(task.lastSuccess));
  return {{"event", "task"},
          {"document", my::Utf8FromWide(key.document)},
          {"task", my::Utf8FromWide(key.taskId)},
          {"last_success", lastSuccess},
          {"overdue", IsOverdue(task, now)}};
}

void PrintAsJson(const CRunnerPorts& ports, const std::wstring& path, const CHistory& history) {
  for (const CHistoryRun& run : history.runs) {
    Json object{{"event", "run"}};
    object.update(HistoryJson(run));
    PrintJson(ports.console, object);
  }
  for (const auto& [key, task] : TaskHistories(history.runs)) {
    PrintJson(ports.console, TaskJson(key, task, ports.engine.clock.Now()));
  }
  PrintJson(ports.console, {{"event", "history"},
                            {"path", my::Utf8FromWide(path)},
                            {"runs", history.runs.size()},
                            {"damaged", history.damagedLines}});
}

std::wstring DocumentText(const my::IMessageTexts& texts, const std::wstring& document) {
  return document.empty() ? texts.Text(IDS_UNTITLED) : document;
}

std::wstring RunLine(const CEnginePorts& ports, const CHistoryRun& run) {
  const CHistoryCounts counts = CountRows(run);
  const my::CMsgArg args[] = {TextOf(ports.texts, run.stopped ? RunState::Stopped : RunState::Ended),
                              std::to_wstring(counts.created),
                              std::to_wstring(counts.skipped),
                              std::to_wstring(counts.failed),
                              std::to_wstring(counts.stopped),
                              std::to_wstring(counts.unlisted)};
  return my::LocalTimeText(ports.clock, run.start) + L" - " + my::LocalTimeText(ports.clock, run.end) +
         L" | " + ports.texts.Text(kRunProgramTexts[run.program]) + L" | " +
         DocumentText(ports.texts, run.document) + L" | " +
         my::MakeText(ports.texts, IDS_HISTORY_COUNTS, args);
}

std::wstring RowLine(const my::IMessageTexts& texts, const CHistoryRow& row) {
  const my::CMsgArg counts[] = {std::to_wstring(row.files), std::to_wstring(row.bytes)};
  const std::wstring result = row.error == 0 ? texts.Text(kRowOutcomeTexts[row.outcome]) : row.message;
  return L"    " + row.taskId + L" | " + (row.destination.empty() ? row.source : row.destination) + L" | " +
         result + L" | " + my::MakeText(texts, IDS_HISTORY_FILES, counts);
}

std::wstring TaskLine(const CEnginePorts& ports, const CTaskKey& key, const CTaskHistory& task) {
  std::wstring line = L"    " + DocumentText(ports.texts, key.document) + L" | " + key.taskId + L" | ";
  line += task.lastSuccess ? my::LocalTimeText(ports.clock, task.lastSuccess)
                           : ports.texts.Text(IDS_HISTORY_NO_SUCCESS);
  if (IsOverdue(task, ports.clock.Now())) line += L" | " + ports.texts.Text(IDS_HISTORY_OVERDUE);
  return line;
}

void PrintAsText(const CRunnerPorts& ports, const CHistory& history) {
  const my::IMessageTexts& texts = ports.engine.texts;
  const auto print = [&ports](const std::wstring& line) { ports.console.Write(kOutput, line + L"\n"); };
  if (history.runs.empty()) return print(texts.Text(IDS_HISTORY_EMPTY));
  for (const CHistoryRun& run : history.runs) {
    print(RunLine(ports.engine, run));
    for (const CHistoryRow& row : run.rows) print(RowLine(texts, row));
  }
  print(texts.Text(IDS_HISTORY_LAST_SUCCESS));
  for (const auto& [key, task] : TaskHistories(history.runs)) print(TaskLine(ports.engine, key, task));
}

void WarnOfDamage(const CRunnerPorts& ports, const std::wstring& path, size_t lines) {
  const my::CMsgArg args[] = {std::to_wstring(lines), path};
  Warn(ports, my::MakeText(ports.engine.texts, IDS_HISTORY_DAMAGED, args));
}

}  // namespace

int ShowHistory(const CRunnerPorts& ports, const COptions& options) {
  const my::CSimpleErr error = my::TrapError(ports.engine.texts, [&] {
    my::IFileSystem& files = ports.engine.files;
    const std::wstring path = HistoryPath(ports.folders, ports.engine.texts);
    CHistory history = LoadHistory(files, ports.engine.clock, path);
    if (!options.documentPath.empty()) {
      const std::wstring document = files.FullPath(options.documentPath);
      std::erase_if(history.runs,
                    [&](const CHistoryRun& run) { return !my::EqualNoCase(run.document, document); });
    }
    if (history.damagedLines != 0) WarnOfDamage(ports, path, history.damagedLines);
    options.json ? PrintAsJson(ports, path, history) : PrintAsText(ports, history);
  });
  if (!error) return kExitDone;
  ports.console.Write(my::IConsole::Stream::Errors, error.message + L"\n");
  return kExitUnusable;
}

}  // namespace qlm
