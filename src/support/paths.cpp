#include "support/paths.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";

// Returns the position after the separator that ends the component at `from`, or the length of the path.
size_t AfterComponent(std::wstring_view path, size_t from) {
  const size_t end = path.find_first_of(kSeparators, from);
  return end == path.npos ? path.size() : end + 1;
}

// Returns the length of a root of the form "\\server\share\", "\\?\C:\" or "\\?\UNC\server\share\". The last
// separator may be missing.
size_t NetworkRootLength(std::wstring_view path) {
  const size_t first = AfterComponent(path, 2);
  const size_t second = AfterComponent(path, first);
  const bool device = first == 4 && (path[2] == L'?' || path[2] == L'.');
  if (!device || !EqualNoCase(path.substr(first, 3), L"UNC") || second != first + 4) return second;
  return AfterComponent(path, AfterComponent(path, second));
}

// Returns the length of the part without a parent ("C:\", "\", a share); 0 for a relative path.
size_t RootLength(std::wstring_view path) {
  if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return NetworkRootLength(path);
  if (path.size() >= 3 && path[1] == L':' && IsSeparator(path[2])) return 3;
  return !path.empty() && IsSeparator(path[0]) ? 1 : 0;
}

// Number of consecutive names that may be refused before the folder is considered inaccessible.
constexpr int kMostRefusals = 10;

// Calls `take` with candidate(0), candidate(1) and so on until it succeeds.
std::wstring TakeFirst(const std::function<std::wstring(uint32_t)>& candidate, const CTakePath& take) {
  int refusals = 0;
  for (uint32_t n = 0; n < std::numeric_limits<uint32_t>::max(); ++n) {
    std::wstring path = candidate(n);
    try {
      if (take(path)) return path;
      refusals = 0;
    } catch (const CException& failure) {
      if (!failure.SystemError().Is(kErrorAccessDenied) || ++refusals == kMostRefusals) throw;
    }
  }
  throw CException(IDS_TEMP_PATH_FAILED);
}

}  // namespace

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
  std::wstring path;
  path.reserve(folder.size() + 1 + name.size());
  path = folder;
  if (!path.empty() && !IsSeparator(path.back())) path += kSeparator;
  path += name;
  return path;
}

std::wstring_view ParentPath(std::wstring_view path) {
  const size_t root = RootLength(path);
  const size_t at = path.find_last_of(kSeparators);
  if (at == path.npos || root == path.size()) return {};
  return path.substr(0, std::max(root, at));
}

std::wstring_view LastComponent(std::wstring_view path) {
  const size_t at = path.find_last_of(kSeparators);
  return at == path.npos ? path : path.substr(at + 1);
}

std::wstring ComparablePath(std::wstring_view path) {
  std::wstring comparable;
  comparable.reserve(path.size());
  for (size_t from = 0; from < path.size();) {
    const size_t end = std::min(path.find_first_of(kSeparators, from), path.size());
    const std::wstring_view component = path.substr(from, end - from);
    const std::wstring_view kept = TrimEnd(component, L". ");
    // A component of dots only refers to a folder and is kept.
    for (const wchar_t c : kept.empty() ? component : kept) comparable += LowerAscii(c);
    from = std::min(path.find_first_not_of(kSeparators, end), path.size());
    if (from < path.size()) comparable.append(end == 0 && from > 1 ? 2 : 1, kSeparator);
  }
  return comparable;
}

bool IsWithin(std::wstring_view path, std::wstring_view folder) {
  return (ComparablePath(path) + kSeparator).starts_with(ComparablePath(folder) + kSeparator);
}

CStemAndExtension SplitExtension(std::wstring_view name) {
  const size_t dot = name.rfind(L'.');
  if (dot == name.npos) return {name, {}};
  return {name.substr(0, dot), name.substr(dot + 1)};
}

std::wstring TakeTemporaryPath(std::wstring_view path, const CTakePath& take) {
  const std::wstring_view name = LastComponent(path);
  if (name.empty() || RootLength(path) == path.size())
    throw CException(IDS_PATH_NO_FILE_NAME, {std::wstring(path)});
  const CStemAndExtension parts = SplitExtension(name);
  std::wstring tail = L"_" + std::wstring(parts.stem);
  if (!parts.extension.empty()) tail.append(L".").append(parts.extension);
  const std::wstring_view parent = ParentPath(path);
  const auto candidate = [&](uint32_t n) {
    return JoinPath(parent, L"_tmp" + (n == 0 ? std::wstring() : std::to_wstring(n)) + tail);
  };
  return TakeFirst(candidate, take);
}

std::wstring TakeNumberedPath(std::wstring_view folder, std::wstring_view prefix, std::wstring_view suffix,
                              const CTakePath& take) {
  const auto candidate = [&](uint32_t n) {
    return JoinPath(folder, std::wstring(prefix) + std::to_wstring(n) + std::wstring(suffix));
  };
  return TakeFirst(candidate, take);
}

}  // namespace my
