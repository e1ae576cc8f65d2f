// Filter files: lines of "+ expression" or "- expression" that decide which files and folders of a source are
// backed up. The first matching line decides.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/exception.h"
#include "support/regex.h"
#include "support/regex_prefilter.h"

namespace my {
class IAnsiCodec;
class IFileSystem;
class IMessageTexts;
}  // namespace my

namespace qlm {

enum class FilterFlags : uint32_t { EXCLUDE = 1 };

// One line with a rule.
struct CFilterItem {
  bool IsExclude() const { return flags == FilterFlags::EXCLUDE; }

  my::CSimpleErr error;                  // set if the line is invalid; the item then matches nothing
  uint32_t lineIndex = 0;                // 0-based index among all lines of the file
  std::wstring line;                     // the whole line
  FilterFlags flags{};                   // EXCLUDE for "-"
  std::wstring pattern;                  // the expression as written; empty if the line is invalid
  std::optional<my::CRegex> expression;  // compiled from the pattern, with "\\" for "/"
};

using CFilterItemPtr = boost::shared_ptr<const CFilterItem>;

// Returns a line that excludes exactly the file with this path ("docs\\a.txt"). The first matching line
// decides, so it must be the first one of a filter.
std::wstring ExcludeLine(std::wstring_view relativePath);

class CFilter {
 public:
  // Reads and parses a file, replacing the current items. An invalid line becomes an item with an error.
  // Throws what ReadTextLines throws.
  void Load(my::IFileSystem& files, const my::IAnsiCodec& ansi, const my::IMessageTexts& texts,
            const std::wstring& path);

  void Parse(const std::vector<std::wstring>& lines, const my::IMessageTexts& texts);

  const std::vector<CFilterItemPtr>& Items() const { return m_items; }
  bool HasErrors() const { return FirstError() != nullptr; }

  // Returns the first invalid item; null if there is none.
  const CFilterItem* FirstError() const;

  // Returns the first item whose expression matches in the path ("docs\a.txt"; a folder ends in "\"); null if
  // none does. The filter owns it. Each thread needs its own `scratch`, so that threads can share a filter.
  // Throws IDS_REGEX_TOO_COMPLEX.
  const CFilterItem* Find(std::wstring_view relativePath, my::CRegexMatch& scratch) const;

 private:
  std::vector<CFilterItemPtr> m_items;
  std::vector<my::CRegexPrefilter> m_prefilters;  // parallel to m_items
};

}  // namespace qlm
