#include "app/plan_actions.h"

#include "app/command.h"
#include "app/file_questions.h"
#include "app/messenger.h"
#include "app/windows.h"
#include "document/document.h"
#include "document/document_edits.h"
#include "document/filter.h"
#include "document/filter_edit.h"
#include "engine/leftovers.h"
#include "engine/value_texts.h"
#include "platform/bounded_call.h"
#include "platform/file_system.h"
#include "platform/safe_file.h"
#include "platform/shell.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr uint64_t kLargestFilter = 16u << 20;  // larger ones are not read either
constexpr uint32_t kMeasureLimitMs = 20'000;    // for the files of a leftover, which were just measured
constexpr size_t kNamedTasks = 5;

// Returns the row of the planned task in the document. Throws IDS_PLAN_OUTDATED.
size_t RowOf(const CDocument& document, const CTask& task) {
  const CTaskPtr current = document.Tasks().FindId(task.id);
  if (!current || current->filterPath != task.filterPath || current->path != task.path)
    throw my::CException(IDS_PLAN_OUTDATED);
  return static_cast<size_t>(document.Tasks().IndexOf(current));
}

// Returns the IDs of the other tasks with this filter; empty if there are none.
std::wstring OtherUsers(const CDocument& document, const CTask& task, const std::wstring& filter) {
  const std::wstring wanted = my::ComparablePath(filter);
  std::wstring ids;
  size_t count = 0;
  for (const CTaskPtr& other : document.Tasks()) {
    if (other->id == task.id || my::ComparablePath(other->filterPath) != wanted) continue;
    if (++count <= kNamedTasks) ids += (ids.empty() ? L"" : L", ") + other->id;
  }
  return count > kNamedTasks ? ids + L", …" : ids;
}

// Returns the path of the task's filter, or asks for that of a new one; empty if the user cancelled.
std::wstring FilterPath(CAppContext& context, const CTask& task) {
  if (!task.filterPath.empty()) return task.filterPath;
  CFileQuestion question = FilterQuestion(context.ports.engine.texts, {});
  question.dialog = FileDialog::SaveFilter;
  return context.dialogs.AskPath(question).value_or(std::wstring());
}

// Existing rules of the file are kept, also if the user chose it for a new filter.
std::string BytesWith(const CEnginePorts& ports, const std::wstring& path, const std::wstring& line) {
  std::string bytes;
  if (ports.files.Kind(path) == my::PathKind::File) bytes = ports.files.ReadFile(path, kLargestFilter + 1);
  if (bytes.size() > kLargestFilter)
    throw my::CException(IDS_OPEN_FILE_FAILED, {my::CTextId{IDS_FILE_TOO_LARGE}, path});
  return WithFirstLine(ports.ansi, bytes, line);
}

}  // namespace

bool ExcludeFile(CAppContext& context, const CTask& task, std::wstring_view relativePath) {
  RefuseDuringReplace(context);
  const size_t row = RowOf(context.document, task);
  const CEnginePorts& ports = context.ports.engine;
  const std::wstring path = FilterPath(context, task);
  if (path.empty()) return false;
  const std::wstring users = OtherUsers(context.document, task, path);
  if (!users.empty() && !context.messenger.Ask(IDS_ASK_SHARED_FILTER, {users, path})) return false;
  my::WriteFileSafely(ports.files, ports.clock, path, BytesWith(ports, path, ExcludeLine(relativePath)));
  SetTaskFilter(context.document, row, path);
  return true;
}

bool RecycleLeftover(CAppContext& context, const CAdvice& leftover) {
  RefuseDuringRun(context);
  const std::wstring size = SizeText(context.ports.engine.texts, leftover.bytes);
  if (!context.messenger.Ask(IDS_ASK_RECYCLE, {size, leftover.path})) return false;
  RefuseDuringRun(context);
  // Stopping is not possible; the port outlives a thread that is blocked.
  const auto find = [&files = context.ports.engine.files, path = leftover.path] {
    return FindLeftover(files, nullptr, path);
  };
  const auto found = my::CallWithin(context.ports.threads, kMeasureLimitMs, find);
  if (!found) throw my::CException(IDS_PATH_NOT_RESPONDING, {leftover.path});
  if (!*found || (*found)->bytes != leftover.bytes)
    throw my::CException(IDS_RECYCLE_CHANGED, {leftover.path});
  return context.ports.shell.Recycle(leftover.path);
}

}  // namespace qlm
