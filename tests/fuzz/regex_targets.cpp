#include <algorithm>
#include <optional>

#include "document/filter.h"
#include "document/text_file.h"
#include "fuzz/targets.h"
#include "replace/replace_rule.h"
#include "support/checks.h"
#include "support/exception.h"
#include "support/fake_ports.h"
#include "support/regex.h"
#include "support/regex_prefilter.h"
#include "support/strings.h"

namespace fuzz {
namespace {

using Verdict = my::CRegexPrefilter::Verdict;

// Bounds the time of a search, which grows with the squares of both lengths.
constexpr size_t kLongest = 64;

std::wstring ShortText(CValues& values) {
  return values.Text().substr(0, kLongest);
}

// Returns nullopt if the expression is refused.
std::optional<my::CRegex> Compiled(const std::wstring& expression) {
  try {
    return my::CRegex(expression);
  } catch (const my::CException&) {
    return {};
  }
}

// Returns nullopt if a search was given up before the deciding line.
std::optional<const qlm::CFilterItem*> FindInOrder(const qlm::CFilter& filter, const std::wstring& path) {
  try {
    for (const qlm::CFilterItemPtr& item : filter.Items()) {
      if (item->expression && item->expression->Found(path)) return item.get();
    }
    return nullptr;
  } catch (const my::CException&) {
    return {};
  }
}

qlm::CReplaceRule Rule(const std::wstring& src, const std::wstring& dst, bool regex) {
  qlm::CReplaceOptions options;
  options.col = qlm::kReplaceTaskId | qlm::kReplaceTaskPath;
  options.src = src;
  options.dst = dst;
  options.regex = regex;
  return qlm::CReplaceRule(options);
}

// Replaces text as such and as the expression for it. A dollar that begins no reference is one.
void CheckLiteral(const std::wstring& src, const std::wstring& dst, const std::wstring& value) {
  std::wstring pattern;
  for (const wchar_t c : src)
    pattern.append(std::wstring_view(L".[]{}()\\*+?^$|").find(c) < 14 ? L"\\" : L"") += c;
  constexpr std::wstring_view kReferences = L"&`'+${0123456789";
  std::wstring format;
  for (size_t i = 0; i < dst.size(); ++i) {
    const bool begins =
        dst[i] == L'$' && i + 1 < dst.size() && kReferences.find(dst[i + 1]) < kReferences.size();
    format.append(begins ? 2 : 1, dst[i]);
  }
  Require(Rule(src, dst, false).Value(qlm::kReplaceTaskId, value) ==
              Rule(pattern, format, true).Value(qlm::kReplaceTaskId, value),
          "text and its expression are replaced alike");
}

}  // namespace

void TestFilter(std::string_view input) {
  CValues values(input);
  qlm::CFilter filter;
  filter.Parse(qlm::TextLines(test::CFakeAnsiCodec(), values.Bytes()), test::CRcTexts());
  my::CRegexMatch scratch;
  while (!values.AtEnd()) {
    const std::wstring path = ShortText(values);
    const auto expected = FindInOrder(filter, path);
    Require(!expected || filter.Find(path, scratch) == *expected, "a filter equals its expressions in order");
  }
}

void TestPattern(std::string_view input) {
  CValues values(input);
  const std::wstring pattern = ShortText(values);
  const my::CRegexPrefilter prefilter(pattern);
  const auto expression = Compiled(pattern);
  while (expression && !values.AtEnd()) {
    const std::wstring text = ShortText(values);
    const Verdict verdict = prefilter.Test(my::CPrefilterText(text));
    bool found = false;
    if (test::ThrownId([&] { found = expression->Found(text); }) != 0) continue;  // too complex
    Require(verdict == Verdict::Undecided || (verdict == Verdict::Match) == found,
            "the prefilter agrees with the expression");
  }
}

void TestReplace(std::string_view input) {
  CValues values(input);
  const std::wstring src = ShortText(values);
  const std::wstring dst = ShortText(values);
  const std::wstring value = ShortText(values);
  CheckLiteral(src, dst, value);
  try {
    Rule(src, dst, true).Value(qlm::kReplaceTaskId, value);
    Require(Rule(src, L"$&", true).Value(qlm::kReplaceTaskId, value) == value,
            "a match is replaced by itself");
  } catch (const my::CException&) {  // refused or too complex
  }
}

}  // namespace fuzz
