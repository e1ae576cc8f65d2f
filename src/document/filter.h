// Filter files: lines of "+ expression" and "- expression" that decide, for every file and folder below a
// task's source, whether it takes part in the backup. The first line that matches decides.
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

// One rule line.
struct CFilterItem {
  bool IsExclude() const { return flags == FilterFlags::EXCLUDE; }

  my::CSimpleErr error;    // set when the line is no rule: the item then matches nothing
  uint32_t lineIndex = 0;  // 0-based, counts every line of the file
  std::wstring line;       // the whole line as read
  FilterFlags flags{};     // EXCLUDE for "-"
  std::wstring pattern;    // what follows the sign, as typed; empty if the line has no such form
  std::optional<my::CRegex> expression;  // of the pattern with "\\" for "/"
};

using CFilterItemPtr = boost::shared_ptr<const CFilterItem>;

class CFilter {
 public:
  // Reads and parses a file in place of what the filter held. A line that is no rule becomes an item with its
  // error. Throws what ReadTextLines throws.
  void Load(my::IFileSystem& files, const my::IAnsiCodec& ansi, const my::IMessageTexts& texts,
            const std::wstring& path);

  void Parse(const std::vector<std::wstring>& lines, const my::IMessageTexts& texts);

  const std::vector<CFilterItemPtr>& Items() const { return m_items; }
  bool HasErrors() const { return FirstError() != nullptr; }

  // The first item that is no rule, null when there is none.
  const CFilterItem* FirstError() const;

  // The first item whose expression is found in the path ("docs\a.txt"; a folder ends in "\"), null for none.
  // Owned by the filter. `scratch` is the caller's, so that threads may share a filter.
  // Throws IDS_REGEX_TOO_COMPLEX when an expression runs away.
  const CFilterItem* Find(std::wstring_view relativePath, my::CRegexMatch& scratch) const;

 private:
  std::vector<CFilterItemPtr> m_items;
  std::vector<my::CRegexPrefilter> m_prefilters;  // one for each item
};

}  // namespace qlm
