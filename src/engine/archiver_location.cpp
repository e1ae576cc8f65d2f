#include "engine/archiver_location.h"

#include "platform/file_system.h"
#include "platform/known_folders.h"
#include "support/paths.h"
#include "support/strings.h"

namespace qlm {

std::vector<std::wstring> ArchiverCandidates(const my::IKnownFolders& folders) {
  const auto programs = folders.ProgramFiles();
  if (!programs) return {L"C:\\Program Files\\7-Zip\\7z.exe"};
  // The folder of 64-bit programs is next to that of 32-bit programs; on a 32-bit system they are the same.
  std::vector<std::wstring> candidates = {
      my::JoinPath(my::ParentPath(*programs), L"Program Files\\7-Zip\\7z.exe"),
      my::JoinPath(*programs, L"7-Zip\\7z.exe")};
  if (my::EqualNoCase(candidates[0], candidates[1])) candidates.pop_back();
  return candidates;
}

std::wstring FindArchiver(my::IFileSystem& files, const my::IKnownFolders& folders) {
  for (const std::wstring& candidate : ArchiverCandidates(folders)) {
    if (my::KindIfKnown(files, candidate) == my::PathKind::File) return candidate;
  }
  return {};
}

bool IsArchiverMissing(my::IFileSystem& files, const my::IKnownFolders& folders, const std::wstring& path) {
  if (path.empty()) return FindArchiver(files, folders).empty();
  return !my::IsOnNetwork(path) && my::KindIfKnown(files, path) != my::PathKind::File;
}

}  // namespace qlm
