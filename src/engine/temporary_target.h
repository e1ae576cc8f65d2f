#pragma once

#include <memory>
#include <string>

#include "document/dst.h"

namespace my {
class IFileSystem;
class INewFile;
}  // namespace my

namespace qlm {

// The path to which a backup is written until it is complete. No other run, in this or another process, uses
// it during the life of the object.
struct CTemporaryTarget {
  std::wstring path;                          // a new folder, or the path for an archive
  std::unique_ptr<my::INewFile> reservation;  // reserves the path of an archive; null for a folder
};

// Reserves the first free temporary path in the folder of `destination`, and creates that folder if it is
// missing. Throws IDS_PATH_NO_FILE_NAME, IDS_TEMP_PATH_FAILED, IDS_CREATE_FOLDER_FAILED,
// IDS_CREATE_FILE_FAILED, IDS_PATH_UNREADABLE.
CTemporaryTarget TakeTemporaryTarget(my::IFileSystem& files, const std::wstring& destination, DstType type);

}  // namespace qlm
