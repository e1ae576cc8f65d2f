#include "history/history_file.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "history/history_codec.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "platform/retry.h"
#include "platform/safe_file.h"
#include "settings/settings_file.h"
#include "support/paths.h"

namespace qlm {
namespace {

constexpr uint32_t kBusyLimitMs = 5000;
constexpr uint64_t kMostBytes = 64u << 20;

// Repeats an operation that another program prevents, for example a run that ends at the same time.
template <class Operation>
auto WhenFree(const my::IClock& clock, Operation operation) {
  return my::RetryWhileRefused(clock, kBusyLimitMs, operation, [] { return true; });
}

std::unique_ptr<my::INewFile> OpenWhenFree(my::IFileSystem& files, const my::IClock& clock,
                                           const std::wstring& path) {
  return WhenFree(clock, [&] { return files.OpenToAppend(path); });
}

struct CHistoryBytes {
  std::string lines;
  bool whole = true;  // false: older lines were left out
};

// Reads the end of a file that may be larger than allowed, because any program can write it.
CHistoryBytes ReadNewest(my::IFileSystem& files, const my::IClock& clock, const std::wstring& path) {
  if (files.Kind(path) == my::PathKind::None) return {};
  CHistoryBytes bytes;
  const uint64_t size = WhenFree(clock, [&] { return files.FileSize(path); });
  const uint64_t offset = size - std::min(size, kMostBytes);
  bytes.lines = WhenFree(clock, [&] { return files.ReadFile(path, 2 * kMostBytes, offset); });
  if (offset == 0) return bytes;
  bytes.whole = false;
  const size_t end = bytes.lines.find('\n');
  bytes.lines.erase(0, end == std::string::npos ? end : end + 1);
  return bytes;
}

// Returns the newest lines that the limits allow, at least the last one. Every line must have its line end.
std::string_view NewestLines(std::string_view lines) {
  size_t first = lines.size();
  for (size_t count = 0; count < kMostHistoryRuns && first != 0; ++count) {
    const size_t before = first == 1 ? lines.npos : lines.rfind('\n', first - 2);
    const size_t start = before == lines.npos ? 0 : before + 1;
    if (count != 0 && lines.size() - start > kMostBytes) break;
    first = start;
  }
  return lines.substr(first);
}

}  // namespace

std::wstring HistoryPath(const my::IKnownFolders& folders, const my::IMessageTexts& texts) {
  const std::wstring settings = SettingsPath(folders, texts);
  return my::JoinPath(my::ParentPath(settings), texts.Text(IDS_PRODUCT_NAME) + L"History.jsonl");
}

void AppendHistory(my::IFileSystem& files, const my::IClock& clock, const std::wstring& path,
                   const CHistoryRun& run) {
  files.CreateFolders(std::wstring(my::ParentPath(path)));
  // A file of its own is the lock, because an open history cannot be replaced. It stays empty and is never
  // deleted: a lock left by a power cut would otherwise be taken for one in use.
  const std::unique_ptr<my::INewFile> lock = OpenWhenFree(files, clock, path + L".lock");
  CHistoryBytes bytes = ReadNewest(files, clock, path);
  const bool torn = !bytes.lines.empty() && bytes.lines.back() != '\n';
  const std::string added = (torn ? "\n" : "") + HistoryLine(run);
  const std::unique_ptr<my::INewFile> file = OpenWhenFree(files, clock, path);
  file->Write(added);
  file->Flush();
  file->Close();
  bytes.lines += added;
  const std::string_view kept = NewestLines(bytes.lines);
  if (bytes.whole && kept.size() == bytes.lines.size()) return;
  my::WriteFileSafely(files, clock, path, kept);
}

CHistory LoadHistory(my::IFileSystem& files, const my::IClock& clock, const std::wstring& path) {
  CHistory history;
  const CHistoryBytes bytes = ReadNewest(files, clock, path);
  for (std::string_view left = bytes.lines; !left.empty();) {
    const std::string_view line = left.substr(0, left.find('\n'));
    left.remove_prefix(std::min(left.size(), line.size() + 1));
    if (line.empty()) continue;
    if (auto run = ParseHistoryLine(line))
      history.runs.push_back(std::move(*run));
    else
      ++history.damagedLines;
  }
  std::ranges::reverse(history.runs);
  return history;
}

}  // namespace qlm
