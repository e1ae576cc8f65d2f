#include "platform/safe_file.h"

#include "platform/file_system.h"
#include "resource.h"
#include "support/exception.h"
#include "support/paths.h"

namespace my {
namespace {

// Takes the file over: it must be closed before anything can be done to its path.
void WriteNew(std::unique_ptr<INewFile> file, std::string_view bytes) {
  file->Write(bytes);
  file->Flush();
  file->Close();
}

void CheckWritten(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
  if (files.ReadFile(path, bytes.size() + 1) != bytes) throw CException(IDS_READ_BACK_FAILED);
}

// The failure that is on its way matters more than one of clearing up after it.
void RemoveQuietly(IFileSystem& files, const std::wstring& path) {
  if (files.Kind(path) != PathKind::FILE) return;
  try {
    files.RemoveFile(path);
  } catch (const CException&) {
    return;
  }
}

}  // namespace

void WriteFileSafely(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
  const auto exists = [&files](const std::wstring& candidate) {
    return files.Kind(candidate) != PathKind::NONE;
  };
  const std::wstring temporary = FreeTemporaryPath(path, exists);
  auto file = files.CreateNewFile(temporary);  // when this fails, what stands there is somebody else's
  try {
    WriteNew(std::move(file), bytes);
    CheckWritten(files, temporary, bytes);
    files.MoveOver(temporary, path);
  } catch (...) {
    RemoveQuietly(files, temporary);
    throw;
  }
}

}  // namespace my
