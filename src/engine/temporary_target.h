#pragma once

#include <memory>
#include <string>

#include "document/dst.h"

namespace my {
class IFileSystem;
class INewFile;
}  // namespace my

namespace qlm {

// Where a backup is written until it is complete. No other run, of this or another program, uses the path
// while the object lives.
struct CTemporaryTarget {
  std::wstring path;                          // a new folder, or where an archive is to be created
  std::unique_ptr<my::INewFile> reservation;  // of an archive's path; a new folder needs none
};

// Takes the first free temporary path beside `destination`, whose parent folder is created if it is missing.
// Throws IDS_PATH_NO_FILE_NAME, IDS_TEMP_PATH_FAILED, IDS_CREATE_FOLDER_FAILED, IDS_CREATE_FILE_FAILED,
// IDS_PATH_UNREADABLE.
CTemporaryTarget TakeTemporaryTarget(my::IFileSystem& files, const std::wstring& destination, DstType type);

}  // namespace qlm
