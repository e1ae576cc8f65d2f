#include "platform/safe_file.h"

#include "platform/file_system.h"
#include "platform/retry.h"
#include "support/exception.h"
#include "support/paths.h"
#include "text_ids.h"

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
  if (KindIfKnown(files, path) != PathKind::FILE) return;
  try {
    files.RemoveFile(path);
  } catch (const CException&) {
    return;
  }
}

}  // namespace

void WriteFileSafely(IFileSystem& files, const IClock& clock, const std::wstring& path,
                     std::string_view bytes) {
  constexpr uint32_t kRenameLimitMs = 2000;  // a user is waiting
  std::unique_ptr<INewFile> file;
  const std::wstring temporary = TakeTemporaryPath(path, [&](const std::wstring& candidate) {
    file = files.CreateNewFile(candidate);
    return file != nullptr;
  });
  try {
    WriteNew(std::move(file), bytes);
    CheckWritten(files, temporary, bytes);
    RetryWhileRefused(
        clock, kRenameLimitMs, [&] { files.MoveOver(temporary, path); }, [] { return true; });
  } catch (...) {
    RemoveQuietly(files, temporary);
    throw;
  }
}

}  // namespace my
