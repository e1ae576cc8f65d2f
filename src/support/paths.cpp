#include "support/paths.h"

#include <cstdint>
#include <limits>

#include "resource.h"
#include "support/exception.h"

namespace my {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";

// Names in a row that may be refused before the folder itself is taken to be the reason.
constexpr int kMostRefusals = 10;

// Counts n = 0, 1, 2, ... until the path that `candidate` makes of it could be taken.
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
  const size_t at = path.find_last_of(kSeparators);
  if (at == path.npos) return {};
  const bool driveRoot = at == 2 && path[1] == L':';
  return path.substr(0, driveRoot ? at + 1 : at);
}

std::wstring_view LastComponent(std::wstring_view path) {
  const size_t at = path.find_last_of(kSeparators);
  return at == path.npos ? path : path.substr(at + 1);
}

CStemAndExtension SplitExtension(std::wstring_view name) {
  const size_t dot = name.rfind(L'.');
  if (dot == name.npos) return {name, {}};
  return {name.substr(0, dot), name.substr(dot + 1)};
}

std::wstring TakeTemporaryPath(std::wstring_view path, const CTakePath& take) {
  const std::wstring_view name = LastComponent(path);
  if (name.empty()) throw CException(IDS_PATH_NO_FILE_NAME, {std::wstring(path)});
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
