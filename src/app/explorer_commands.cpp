#include "app/explorer_commands.h"

#include "app/messenger.h"
#include "document/document.h"
#include "platform/file_system.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "support/paths.h"

namespace qlm {
namespace {

std::wstring NearestExisting(my::IFileSystem& files, std::wstring path) {
  while (!path.empty() && files.Kind(path) == my::PathKind::NONE) path = std::wstring(my::ParentPath(path));
  return path;
}

const CTarget& TargetAt(const CTargets& targets, size_t row) {
  return targets.begin()[static_cast<std::ptrdiff_t>(row)];
}

const std::wstring& DestinationOf(const CResult& result) {
  if (!result.Dst() || result.destinationPath.empty()) throw my::CException(IDS_NO_DESTINATION);
  return result.destinationPath;
}

}  // namespace

void CCommandExplorer::Execute(bool run) {
  if (m_path.empty() && m_idList.empty()) throw my::CException(IDS_ID_LIST_EMPTY);
  if (!run) return;
  my::IFileSystem& files = m_context.ports.engine.files;
  my::IShell& shell = m_context.ports.shell;
  std::wstring path = m_path.empty() ? shell.PathOf(m_idList) : m_path;
  if (files.Kind(path) == my::PathKind::NONE) {
    if (!m_context.messenger.Ask(IDS_ASK_OPEN_NEAREST_FOLDER)) return;
    path = NearestExisting(files, path);
  }
  const my::PathKind kind = files.Kind(path);
  if (m_openFolder && kind == my::PathKind::FOLDER) return shell.Open(path);
  if (kind == my::PathKind::NONE) {
    const auto error = my::CSystemError::FromWin32(my::kErrorPathNotFound);
    throw my::CException(IDS_SHELL_OPEN_FAILED, {error, path.empty() ? m_path : path});
  }
  shell.Run(L"EXPLORER.EXE", L"/n,/select,\"" + path + L"\"");
}

std::wstring SourceFolderOf(const CTasks& tasks, size_t row) {
  return tasks[row]->path;
}

std::wstring FolderOf(const CDsts& dsts, size_t row) {
  return dsts[row]->folder;
}

std::wstring FolderOfTaskDst(const CTaskDsts& dsts, size_t row) {
  return dsts[row]->folder;
}

std::wstring DestinationOf(const CResults& results, size_t row) {
  return DestinationOf(*results[row]);
}

std::wstring SourceOfTarget(const CResult& result, const CTargets& targets, size_t row) {
  return my::JoinPath(result.task->path, TargetAt(targets, row).RelativePath());
}

std::wstring BackupOfTarget(const CResult& result, const CTargets& targets, size_t row) {
  const std::wstring& destination = DestinationOf(result);
  if (IsZip(result.Dst()->type)) return destination;
  return my::JoinPath(destination, TargetAt(targets, row).RelativePath());
}

void CCommandOpenUrl::Execute(bool run) {
  if (!run) return;
  std::wstring page = m_context.ports.engine.texts.Text(m_stringId);
  const bool isAddress = page.find(L"://") != page.npos;
  if (!isAddress) page = my::JoinPath(m_context.ports.folders.ProgramFolder(), page);
  m_context.ports.shell.Open(page);
}

}  // namespace qlm
