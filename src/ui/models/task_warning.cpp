#include "ui/models/task_warning.h"

#include "document/name_pattern.h"
#include "engine/advice.h"
#include "engine/name_advice.h"
#include "engine/transfer_plan.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

std::wstring Warning(const my::IMessageTexts& texts, uint32_t id, const std::vector<my::CMsgArg>& args) {
  const my::CMsgArg text = my::MakeText(texts, id, args);
  return my::MakeText(texts, IDS_WARNING, {&text, 1});
}

}  // namespace

std::wstring TaskWarning(const CTask& task, const CEnginePorts& ports) {
  if (task.path.empty()) return {};
  for (const CDstPtr& dst : task.dsts) {
    if (my::IsWithin(dst->folder, task.path))
      return Warning(ports.texts, IDS_TASK_DST_WITHIN_SOURCE, {dst->folder});
  }
  if (IsSourceMissing(ports.files, task.path)) return Warning(ports.texts, IDS_TASK_NO_SOURCE, {task.path});
  for (const CDstPtr& dst : task.dsts) {
    if (auto warning = ArchiveWarning(*dst, task.id, ports); !warning.empty()) return warning;
  }
  return {};
}

std::wstring ArchiveWarning(const CDst& dst, const std::wstring& taskId, const CEnginePorts& ports) {
  if (!IsZip(dst.type)) return {};
  CDst fitted = dst;
  FitPattern(fitted.type, fitted.pattern);
  const auto split = FindSplitPath(ports.files, SamplePath(fitted, taskId, ports.clock));
  return split ? Warning(ports.texts, split->Id(), split->Args()) : std::wstring();
}

}  // namespace qlm
