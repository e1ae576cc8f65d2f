// Keeps the folders of a source what they were when listed.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "platform/file_system.h"

namespace qlm {

class CTarget;
class CTargets;

// Whether folders are held while they are guarded. Holding keeps others from renaming and deleting them.
enum class FolderHold { No, Yes };

// Guards the folders through which files are read: a folder that was none at the listing must not be a link,
// which may lead out of the source. Folders are checked when the first file in them is taken and when the
// last one is released; in between they are held, where the system supports this. Not for use by several
// threads at the same time.
class CSourceGuard {
 public:
  // `source` and `targets` must outlive the guard.
  CSourceGuard(my::IFileSystem& files, const std::wstring& source, const CTargets& targets, FolderHold hold)
      : m_files(files), m_source(source), m_targets(targets), m_hold(hold) {}

  // Guards the folder of a file and its parents up to the source until `Release` is called for the file, and
  // longer if the next file is in the same folder. Throws IDS_SOURCE_BECAME_LINK.
  void Take(const CTarget& file);

  // Throws IDS_SOURCE_BECAME_LINK.
  void Release(const CTarget& file);

  // Releases the folder of the last file. Throws IDS_SOURCE_BECAME_LINK.
  void End();

 private:
  struct CGuarded {
    std::unique_ptr<my::IHeldFolder> held;
    size_t users = 0;  // files, and guarded folders directly below
  };
  static constexpr size_t kNone = static_cast<size_t>(-2);

  void TakeFolder(size_t folder);
  void ReleaseFolder(size_t folder);
  void EnterFolder(size_t folder);
  void Check(size_t folder) const;
  std::wstring PathOf(size_t folder) const;

  my::IFileSystem& m_files;
  const std::wstring& m_source;
  const CTargets& m_targets;
  const FolderHold m_hold;
  std::map<size_t, CGuarded> m_guarded;  // by index in the list; CTargets::kSource for the source
  size_t m_current = kNone;              // the folder of the last file that was taken
};

// Returns the path of a folder without a separator at its end, with which the system might follow a link.
// Only the root of a drive keeps it.
std::wstring FolderPath(std::wstring path);

// Checks all folders that contain files to back up. Throws IDS_SOURCE_BECAME_LINK.
void CheckFolders(my::IFileSystem& files, const std::wstring& source, const CTargets& targets);

}  // namespace qlm
