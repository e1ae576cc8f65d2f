// What the replace tool does to one value.
#pragma once

#include <optional>
#include <string>

#include "document/dst.h"
#include "document/replace_options.h"
#include "document/task.h"
#include "support/regex.h"

namespace qlm {

// In a format "$&" stands for the match, "$`" for the text before it (from the match before on), "$'" for the
// text behind it, "$1" to "$9" and "${n}" for groups, "$+" for the last one and "$$" for a dollar sign.
// Everything else stands for itself, so that a path can be typed as it is.
class CReplaceRule {
 public:
  CReplaceRule() = default;

  // Compiles the expression if there is one. An empty search text changes nothing, also as an expression.
  // Throws what CRegex throws.
  explicit CReplaceRule(CReplaceOptions options);

  const CReplaceOptions& Options() const { return m_options; }

  // The value of a column (one flag) as it is after the replacement; unchanged when the column is not among
  // those to change. Throws IDS_REGEX_TOO_COMPLEX.
  std::wstring Value(ReplaceCol column, const std::wstring& value) const;

 private:
  CReplaceOptions m_options;
  std::optional<my::CRegex> m_regex;
  std::wstring m_format;  // of the expression, as its library takes it
};

// A copy of the item with all its columns replaced, which carries no rule; empty when nothing changes. Throws
// IDS_REGEX_TOO_COMPLEX.
CTaskPtr Replaced(const CReplaceRule& rule, const CTask& task);
CDstPtr Replaced(const CReplaceRule& rule, const CDst& dst);

// The value of one of the item's columns as the lists show it: through the item's rule when it has one. A
// value that the expression runs away on shows as it is.
std::wstring ShownValue(const CTask& task, ReplaceCol column);
std::wstring ShownValue(const CDst& dst, ReplaceCol column);

}  // namespace qlm
