#include "app/explorer_commands.h"

#include <algorithm>

#include "app/messenger.h"
#include "document/document.h"
#include "platform/bounded_call.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr uint32_t kLookUpLimitMs = 4000;  // for all lookups of a command

struct CPlace {
  std::wstring path;
  my::PathKind kind = my::PathKind::None;
  my::CSystemError error = my::CSystemError::FromWin32(my::kErrorPathNotFound);  // valid if the kind is None
};

CPlace PlaceAt(my::IFileSystem& files, const std::wstring& path) {
  CPlace place{path};
  try {
    place.kind = files.Kind(path);
  } catch (const my::CException& failure) {
    place.error = {static_cast<int32_t>(failure.Detail())};  // unreachable or denied
  }
  return place;
}

// Returns the path or its nearest existing parent; if there is none, the path with its error.
CPlace NearestPlace(my::IFileSystem& files, const std::wstring& path) {
  CPlace origin = PlaceAt(files, path);
  CPlace place = origin;
  while (place.kind == my::PathKind::None) {
    const std::wstring parent(my::ParentPath(place.path));
    if (parent.empty()) return origin;
    place = PlaceAt(files, parent);
  }
  return place;
}

// Checks paths on a separate thread, because an unresponsive network blocks for up to a minute.
class CLookUp {
 public:
  explicit CLookUp(const CAppPorts& ports) : m_ports(ports) {}

  // Calls PlaceAt or NearestPlace. Throws IDS_PATH_NOT_RESPONDING when the time limit is reached.
  CPlace Place(CPlace (&find)(my::IFileSystem&, const std::wstring&), const std::wstring& path) {
    const my::IClock& clock = m_ports.engine.clock;
    const uint64_t start = clock.TickCount();
    my::IFileSystem& files = m_ports.engine.files;
    auto place =
        my::CallWithin(m_ports.threads, m_leftMs, [&files, &find, path] { return find(files, path); });
    if (!place) throw my::CException(IDS_PATH_NOT_RESPONDING, {path});
    m_leftMs -= static_cast<uint32_t>(std::min<uint64_t>(clock.TickCount() - start, m_leftMs));
    return *std::move(place);
  }

 private:
  const CAppPorts& m_ports;
  uint32_t m_leftMs = kLookUpLimitMs;
};

const std::wstring& DestinationOf(const CResult& result) {
  if (!result.Dst() || result.destinationPath.empty()) throw my::CException(IDS_NO_DESTINATION);
  return result.destinationPath;
}

}  // namespace

void CCommandExplorer::Execute(bool run) {
  if (m_path.empty() && m_idList.empty()) throw my::CException(IDS_ID_LIST_EMPTY);
  if (!run) return;
  my::IShell& shell = m_context.ports.shell;
  const std::wstring path = m_path.empty() ? shell.PathOf(m_idList) : m_path;
  CLookUp lookUp(m_context.ports);
  CPlace place = lookUp.Place(PlaceAt, path);
  if (place.kind == my::PathKind::None) {
    if (!m_context.messenger.Ask(IDS_ASK_OPEN_NEAREST_FOLDER)) return;
    place = lookUp.Place(NearestPlace, path);
  }
  if (place.kind == my::PathKind::None) throw my::CException(IDS_SHELL_OPEN_FAILED, {place.error, path});
  if (m_openFolder && place.kind == my::PathKind::Folder) return shell.Open(place.path);
  shell.Run(L"EXPLORER.EXE", L"/n,/select,\"" + place.path + L"\"");
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
  return my::JoinPath(result.task->path, targets[row].RelativePath());
}

std::wstring BackupOfTarget(const CResult& result, const CTargets& targets, size_t row) {
  const std::wstring& destination = DestinationOf(result);
  if (IsZip(result.Dst()->type)) return destination;
  return my::JoinPath(destination, targets[row].RelativePath());
}

void CCommandOpenUrl::Execute(bool run) {
  if (!run) return;
  std::wstring page = m_context.ports.engine.texts.Text(m_stringId);
  const bool isAddress = page.find(L"://") != page.npos;
  if (!isAddress) page = my::JoinPath(m_context.ports.folders.ProgramFolder(), page);
  m_context.ports.shell.Open(page);
}

}  // namespace qlm
