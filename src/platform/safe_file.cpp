#include "platform/safe_file.h"

#include "platform/file_system.h"
#include "platform/retry.h"
#include "support/exception.h"
#include "support/paths.h"
#include "text_ids.h"

namespace my {
namespace {

// Takes ownership of the file, because it must be closed before its path can be used.
void WriteNew(std::unique_ptr<INewFile> file, std::string_view bytes) {
  file->Write(bytes);
  file->Flush();
  file->Close();
}

void CheckWritten(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
  if (files.ReadFile(path, bytes.size() + 1) != bytes) throw CException(IDS_READ_BACK_FAILED);
}

// Removes the file and ignores failures, so that the original failure is reported.
void RemoveQuietly(IFileSystem& files, const std::wstring& path) {
  if (KindIfKnown(files, path) != PathKind::File) return;
  try {
    files.RemoveFile(path);
  } catch (const CException&) {
    return;
  }
}

}  // namespace

void WriteFileSafely(IFileSystem& files, const IClock& clock, const std::wstring& path,
                     std::string_view bytes) {
  constexpr uint32_t kLimitMs = 2000;  // short, because the user is waiting
  const auto retry = [&clock](auto operation) {
    RetryWhileRefused(clock, kLimitMs, operation, [] { return true; });
  };
  std::unique_ptr<INewFile> file;
  const std::wstring temporary = TakeTemporaryPath(path, [&](const std::wstring& candidate) {
    file = files.CreateNewFile(candidate);
    return file != nullptr;
  });
  try {
    WriteNew(std::move(file), bytes);
    retry([&] { CheckWritten(files, temporary, bytes); });
    retry([&] { files.MoveOver(temporary, path); });
  } catch (...) {
    RemoveQuietly(files, temporary);
    throw;
  }
}

}  // namespace my
