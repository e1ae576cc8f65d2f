// Paths as text: "\" separates, nothing is looked up on a disk.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace my {

inline constexpr wchar_t kSeparator = L'\\';

constexpr bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

// `folder` and `name` with exactly one separator between them; an empty folder yields the name alone.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

// The path without its last component and the separator before that ("C:\a" of "C:\a\b"). A root keeps its
// separator ("C:\" of "C:\a", "\\server\share\" of "\\server\share\a"). Empty if there is no parent: for a
// root and for a single relative name.
std::wstring_view ParentPath(std::wstring_view path);

// What follows the last separator; empty when the path ends in one.
std::wstring_view LastComponent(std::wstring_view path);

struct CStemAndExtension {
  std::wstring_view stem;
  std::wstring_view extension;  // without its ".", empty when the name has none
};

// Splits a name at its last ".".
CStemAndExtension SplitExtension(std::wstring_view name);

// Takes possession of a path and returns true, or returns false if somebody else has it. Of two programs that
// try the same path at the same time only one may get true, so a look whether the path exists is not enough.
// A name that is about to be deleted is refused with "access denied": such a failure counts as false a few
// times, in case it is only this name.
using CTakePath = std::function<bool(const std::wstring& path)>;

// Takes the first free path beside `path` to write under until the work is complete: "_tmp_S.E", "_tmp1_S.E",
// "_tmp2_S.E" and so on for a last component "S.E". Throws IDS_PATH_NO_FILE_NAME if the path has no last
// component, IDS_TEMP_PATH_FAILED if no name is free, and what `take` throws.
std::wstring TakeTemporaryPath(std::wstring_view path, const CTakePath& take);

// Takes the first free of "<folder>\<prefix>0<suffix>", "<folder>\<prefix>1<suffix>" and so on.
// Throws IDS_TEMP_PATH_FAILED if no name is free, and what `take` throws.
std::wstring TakeNumberedPath(std::wstring_view folder, std::wstring_view prefix, std::wstring_view suffix,
                              const CTakePath& take);

}  // namespace my
