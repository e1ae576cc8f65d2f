#include "engine/transfer_plan.h"

#include "engine/archive_writer.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

using my::PathKind;

std::wstring Parent(const std::wstring& path) {
  return std::wstring(my::ParentPath(path));
}

// Returns whether the path has no parent because it is a drive or a share, not because it is relative.
bool IsRoot(const std::wstring& path) {
  return my::IsSeparator(path.back()) || my::IsOnNetwork(path);
}

[[noreturn]] void ThrowNoFolder(const std::wstring& folder, uint32_t win32) {
  throw my::CException(IDS_CREATE_FOLDER_FAILED, {my::CSystemError::FromWin32(win32), folder});
}

std::wstring TemporaryFolder(my::IFileSystem& files) {
  try {
    return files.TemporaryFolder();
  } catch (const my::CException&) {
    return {};  // the run reports it
  }
}

// Throws the failure with which the archiver would end.
void CheckArchiver(my::IFileSystem& files, const CPlannedTransfer& transfer) {
  const std::wstring& program = transfer.archiverPath;
  const bool checkable = !my::IsOnNetwork(program);
  if (program.empty() || (checkable && my::KindIfKnown(files, program) != PathKind::File)) {
    const auto error = my::CSystemError::FromWin32(my::kErrorFileNotFound);
    throw my::CException(IDS_CREATE_PROCESS_FAILED, {error, program});
  }
  if (const auto split = FindSplitPath(files, transfer.path)) throw *split;
}

}  // namespace

PathKind CTransferPlan::Kind(const std::wstring& path) {
  const auto known = m_known.find(my::ComparablePath(path));
  return known == m_known.end() ? m_files.Kind(path) : known->second;
}

void CTransferPlan::Add(const CPlannedTransfer& transfer) {
  CheckFolder(Parent(transfer.path));
  if (IsZip(transfer.type)) CheckArchiver(m_files, transfer);
  m_known[my::ComparablePath(transfer.path)] = IsZip(transfer.type) ? PathKind::File : PathKind::Folder;
}

// Throws if the folder neither exists nor can be created.
void CTransferPlan::CheckFolder(const std::wstring& folder) {
  if (folder.empty()) return;
  const PathKind kind = Kind(folder);
  if (kind == PathKind::File) ThrowNoFolder(folder, my::kErrorAlreadyExists);
  if (kind == PathKind::None) {
    const std::wstring parent = Parent(folder);
    if (parent.empty() && IsRoot(folder)) ThrowNoFolder(folder, my::kErrorPathNotFound);
    CheckFolder(parent);
  }
  m_known[my::ComparablePath(folder)] = PathKind::Folder;
}

std::optional<CTransferPlan::CVolume> CTransferPlan::VolumeOf(const std::wstring& path) {
  for (std::wstring folder = Parent(path); !folder.empty(); folder = Parent(folder)) {
    const auto freeBytes = FreeSpace(folder);
    if (!freeBytes) continue;
    std::wstring root = folder;
    while (!Parent(root).empty()) root = Parent(root);
    // A volume mounted in a folder has the root of another one, but other free space.
    return CVolume{my::ComparablePath(root) + L'|' + std::to_wstring(*freeBytes), *freeBytes};
  }
  return {};
}

std::optional<uint64_t> CTransferPlan::FreeSpace(const std::wstring& folder) {
  const auto [at, isNew] = m_freeSpace.try_emplace(my::ComparablePath(folder));
  if (!isNew) return at->second;
  try {
    // A planned folder does not exist yet.
    if (m_files.Kind(folder) == PathKind::Folder) at->second = m_files.FreeSpace(folder);
  } catch (const my::CException&) {
  }
  return at->second;
}

std::optional<my::CException> FindSplitPath(my::IFileSystem& files, const std::wstring& archivePath) {
  const auto split = [](uint32_t placeId, const std::wstring& path) {
    return my::CException(IDS_SPACE_IN_ARCHIVE, {my::CTextId{placeId}, path});
  };
  const std::wstring folder = Parent(archivePath);
  if (IsSplitByArchiver(folder)) return split(IDS_SPACE_IN_FOLDER, folder);
  const std::wstring name(my::LastComponent(archivePath));
  if (IsSplitByArchiver(name)) return split(IDS_SPACE_IN_NAME, name);
  const std::wstring temporary = TemporaryFolder(files);
  if (IsSplitByArchiver(temporary)) return split(IDS_SPACE_IN_TEMPORARY, temporary);
  return {};
}

}  // namespace qlm
