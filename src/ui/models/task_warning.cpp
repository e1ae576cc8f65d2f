#include "ui/models/task_warning.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "resource.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {
namespace {

// The folder with one kind of separator, one behind it.
std::wstring AsPrefix(std::wstring path) {
  std::replace(path.begin(), path.end(), L'/', my::kSeparator);
  while (path.ends_with(my::kSeparator)) path.pop_back();
  return path + my::kSeparator;
}

bool LiesWithin(const std::wstring& path, const std::wstring& folder) {
  const std::wstring prefix = AsPrefix(folder);
  return my::EqualNoCase(std::wstring_view(AsPrefix(path)).substr(0, prefix.size()), prefix);
}

bool IsOnNetwork(std::wstring_view path) {
  return path.size() >= 2 && my::IsSeparator(path[0]) && my::IsSeparator(path[1]);
}

std::wstring Warning(const my::IMessageTexts& texts, uint32_t id, const std::wstring& argument) {
  const std::vector<my::CMsgArg> argumentOnly = {argument};
  const std::vector<my::CMsgArg> text = {my::MakeText(texts, id, argumentOnly)};
  return my::MakeText(texts, IDS_WARNING, text);
}

}  // namespace

std::wstring TaskWarning(const CTask& task, my::IFileSystem& files, const my::IMessageTexts& texts) {
  if (task.path.empty()) return {};
  for (const CDstPtr& dst : task.dsts) {
    if (LiesWithin(dst->folder, task.path)) return Warning(texts, IDS_TASK_DST_WITHIN_SOURCE, dst->folder);
  }
  if (IsOnNetwork(task.path) || my::KindIfKnown(files, task.path) == my::PathKind::FOLDER) return {};
  return Warning(texts, IDS_TASK_NO_SOURCE, task.path);
}

}  // namespace qlm
