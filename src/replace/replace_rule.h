// The rule by which the replace tool changes a value.
#pragma once

#include <optional>
#include <string>

#include "document/dst.h"
#include "document/replace_options.h"
#include "document/task.h"
#include "support/regex.h"

namespace qlm {

// In a format "$&" is the match, "$`" the text from the previous match to this one, "$'" the text after it,
// "$1" to "$9" and "${n}" are groups, "$+" is the last group and "$$" a dollar sign. Everything else is
// literal, so that paths need no escapes.
class CReplaceRule {
 public:
  CReplaceRule() = default;

  // Compiles the expression, if used. An empty search text, also as an expression, changes nothing. Throws
  // what CRegex throws.
  explicit CReplaceRule(CReplaceOptions options);

  const CReplaceOptions& Options() const { return m_options; }

  // Returns the value of a column (one flag) after the replacement; unchanged if the column is not selected.
  // Throws IDS_REGEX_TOO_COMPLEX.
  std::wstring Value(ReplaceCol column, const std::wstring& value) const;

 private:
  CReplaceOptions m_options;
  std::optional<my::CRegex> m_regex;
  std::wstring m_format;  // in the library's format
};

// Return a copy of the item with all columns replaced and without a rule; null if nothing changes. Throw
// IDS_REGEX_TOO_COMPLEX.
CTaskPtr Replaced(const CReplaceRule& rule, const CTask& task);
CDstPtr Replaced(const CReplaceRule& rule, const CDst& dst);

// Return the value of a column as the lists show it: with the item's rule applied, if it has one. If the
// expression is too complex for the value, the value is returned unchanged.
std::wstring ShownValue(const CTask& task, ReplaceCol column);
std::wstring ShownValue(const CDst& dst, ReplaceCol column);

}  // namespace qlm
