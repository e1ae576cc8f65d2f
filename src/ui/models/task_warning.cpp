#include "ui/models/task_warning.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "document/name_pattern.h"
#include "engine/archive_writer.h"
#include "engine/backup_task.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/name_preview.h"

namespace qlm {
namespace {

// Returns the folder with backslashes only and one at its end.
std::wstring AsPrefix(std::wstring path) {
  std::replace(path.begin(), path.end(), L'/', my::kSeparator);
  while (path.ends_with(my::kSeparator)) path.pop_back();
  return path + my::kSeparator;
}

bool LiesWithin(const std::wstring& path, const std::wstring& folder) {
  const std::wstring prefix = AsPrefix(folder);
  return my::EqualNoCase(std::wstring_view(AsPrefix(path)).substr(0, prefix.size()), prefix);
}

std::wstring Warning(const my::IMessageTexts& texts, uint32_t id, const std::vector<my::CMsgArg>& args) {
  const my::CMsgArg text = my::MakeText(texts, id, args);
  return my::MakeText(texts, IDS_WARNING, {&text, 1});
}

std::wstring TemporaryFolder(my::IFileSystem& files) {
  try {
    return files.TemporaryFolder();
  } catch (const my::CException&) {
    return {};  // the run reports it
  }
}

// Any time will do, because no date token yields a space.
std::wstring ArchiveName(CDst dst, const std::wstring& taskId, const my::IClock& clock) {
  constexpr my::CFileTime kAnyTime{133'500'000'000'000'000};
  FitPattern(dst.type, dst.pattern);
  return ExpandName(dst, taskId, kAnyTime, clock);
}

}  // namespace

std::wstring TaskWarning(const CTask& task, const CEnginePorts& ports) {
  if (task.path.empty()) return {};
  for (const CDstPtr& dst : task.dsts) {
    if (LiesWithin(dst->folder, task.path))
      return Warning(ports.texts, IDS_TASK_DST_WITHIN_SOURCE, {dst->folder});
  }
  const bool exists =
      my::IsOnNetwork(task.path) || my::KindIfKnown(ports.files, task.path) == my::PathKind::Folder;
  if (!exists) return Warning(ports.texts, IDS_TASK_NO_SOURCE, {task.path});
  for (const CDstPtr& dst : task.dsts) {
    if (auto warning = ArchiveWarning(*dst, task.id, ports); !warning.empty()) return warning;
  }
  return {};
}

std::wstring ArchiveWarning(const CDst& dst, const std::wstring& taskId, const CEnginePorts& ports) {
  if (!IsZip(dst.type)) return {};
  const auto warning = [&ports](uint32_t place, const std::wstring& path) {
    return Warning(ports.texts, IDS_SPACE_IN_ARCHIVE, {my::CTextId{place}, path});
  };
  // A run trims both.
  const std::wstring folder(my::Trim(dst.folder, my::kBlanks));
  if (IsSplitByArchiver(folder)) return warning(IDS_SPACE_IN_FOLDER, folder);
  const std::wstring name(my::Trim(ArchiveName(dst, taskId, ports.clock), my::kBlanks));
  if (IsSplitByArchiver(name)) return warning(IDS_SPACE_IN_NAME, name);
  const std::wstring temporary = TemporaryFolder(ports.files);
  return IsSplitByArchiver(temporary) ? warning(IDS_SPACE_IN_TEMPORARY, temporary) : std::wstring();
}

}  // namespace qlm
