#include "engine/temporary_target.h"

#include "platform/file_system.h"
#include "support/paths.h"

namespace qlm {
namespace {

// Returns "_lck1_a.zip" for "_tmp1_a.zip".
std::wstring ReservationPath(const std::wstring& path) {
  constexpr size_t kPrefix = 4;
  const std::wstring_view name = my::LastComponent(path);
  return path.substr(0, path.size() - name.size()) + L"_lck" + std::wstring(name.substr(kPrefix));
}

}  // namespace

CTemporaryTarget TakeTemporaryTarget(my::IFileSystem& files, const std::wstring& destination, DstType type) {
  files.CreateFolders(std::wstring(my::ParentPath(destination)));
  CTemporaryTarget target;
  const auto takeFolder = [&](const std::wstring& path) { return files.CreateNewFolder(path); };
  // The archiver creates the archive itself, so a separate file reserves its name. The archive is checked
  // after that, because the previous holder of the name may have left one.
  const auto takeArchive = [&](const std::wstring& path) {
    auto reservation = files.CreateNewFile(ReservationPath(path), my::FileLife::UntilClosed);
    if (!reservation || files.Kind(path) != my::PathKind::None) return false;
    target.reservation = std::move(reservation);
    return true;
  };
  target.path = IsZip(type) ? my::TakeTemporaryPath(destination, takeArchive)
                            : my::TakeTemporaryPath(destination, takeFolder);
  return target;
}

}  // namespace qlm
