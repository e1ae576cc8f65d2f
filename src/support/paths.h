// Path operations on text; none accesses the disk. The separator is "\".
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace my {

inline constexpr wchar_t kSeparator = L'\\';

constexpr bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

// Returns whether the path is that of a share: "\\server\share".
constexpr bool IsOnNetwork(std::wstring_view path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

// Returns `folder` and `name` with exactly one separator between them; `name` alone if the folder is empty.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

// Returns the path without its last component and the separator before it ("C:\a" for "C:\a\b"). A root keeps
// its separator ("C:\" for "C:\a", "\\server\share" for "\\server\share\a"). Empty if there is no parent: for
// a root and for a single relative name.
std::wstring_view ParentPath(std::wstring_view path);

// Returns the text after the last separator; empty if the path ends in one.
std::wstring_view LastComponent(std::wstring_view path);

// Returns the path in a form in which equal paths have equal texts: "\\" as only separator, none repeated or
// at the end, no dots and spaces at the end of a component, ASCII letters in lower case. For comparisons
// only.
std::wstring ComparablePath(std::wstring_view path);

// Returns whether `path` is `folder` or below it.
bool IsWithin(std::wstring_view path, std::wstring_view folder);

struct CStemAndExtension {
  std::wstring_view stem;
  std::wstring_view extension;  // without its "."; empty if the name has none
};

// Splits a name at its last ".".
CStemAndExtension SplitExtension(std::wstring_view name);

// Creates the path and returns true, or returns false if it exists. If two programs try the same path at the
// same time, only one may get true, so checking whether the path exists is not enough. "Access denied" counts
// as false a few times, because a name pending deletion is refused in this way.
using CTakePath = std::function<bool(const std::wstring& path)>;

// Creates the first free temporary path in the folder of `path`: "_tmp_S.E", "_tmp1_S.E", "_tmp2_S.E" and so
// on for a last component "S.E". Throws IDS_PATH_NO_FILE_NAME if the path has no last component,
// IDS_TEMP_PATH_FAILED if no name is free, and what `take` throws.
std::wstring TakeTemporaryPath(std::wstring_view path, const CTakePath& take);

// Creates the first free path of "<folder>\<prefix>0<suffix>", "<folder>\<prefix>1<suffix>" and so on. Throws
// IDS_TEMP_PATH_FAILED if no name is free, and what `take` throws.
std::wstring TakeNumberedPath(std::wstring_view folder, std::wstring_view prefix, std::wstring_view suffix,
                              const CTakePath& take);

}  // namespace my
