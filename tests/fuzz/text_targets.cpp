#include <algorithm>

#include "app/command_line.h"
#include "document/name_pattern.h"
#include "fuzz/targets.h"
#include "run/options.h"
#include "support/fake_ports.h"
#include "support/name_faults.h"
#include "support/paths.h"
#include "support/strings.h"

namespace fuzz {
namespace {

// Puts each character into quotes of the other kind.
std::wstring Quoted(const std::vector<std::wstring>& arguments) {
  std::wstring line;
  for (const std::wstring& argument : arguments) {
    line += line.empty() ? L"" : L" ";
    for (const wchar_t c : argument) {
      const wchar_t quote = c == L'"' ? L'\'' : L'"';
      line.append({quote, c, quote});
    }
  }
  return line;
}

void CheckPattern(const std::wstring& pattern, const std::wstring& id, my::CFileTime time) {
  const test::CFakeClock clock;
  const qlm::CDst dst{{}, qlm::DstType::ZIP, pattern};
  const std::wstring name = ExpandName(dst, id, time, clock);
  const qlm::CNameTokens tokens = qlm::TokensOf(pattern);
  const bool none = !(tokens.id || tokens.year || tokens.month || tokens.day || tokens.hour ||
                      tokens.minute || tokens.second);
  Require(!none || name == pattern, "a name without tokens is the pattern");
  std::wstring fitted = pattern;
  if (FitPattern(dst.type, fitted)) Require(HasFittingExtension(dst.type, fitted), "a fitted pattern fits");
}

void CheckFaults(const std::wstring& folder, const std::wstring& name) {
  std::wstring lower = name;
  std::ranges::transform(lower, lower.begin(), my::LowerAscii);
  const auto fault = my::FindNameFault(folder, name);
  const auto same = my::FindNameFault(folder, lower);
  Require(fault.has_value() == same.has_value() && (!fault || fault->id == same->id), "case does not matter");
  const std::wstring whole = folder + L"\\" + name;
  Require(!fault || whole.find(fault->name) != whole.npos, "a fault names a component");
  Require(my::FindNameFault(folder, name + L"\\nul.txt").has_value(), "a device is found in every folder");
  const std::wstring comparable = my::ComparablePath(whole);
  Require(my::ComparablePath(comparable) == comparable, "a comparable path stays as it is");
  if (!folder.empty() && !name.empty()) {
    Require(my::IsWithin(my::JoinPath(folder, name), folder), "a file is within its folder");
  }
}

}  // namespace

void TestCommandLine(std::string_view input) {
  const auto split = &qlm::CCommandLineParserUtil::Split;
  const auto arguments = split(CValues(input).Text());
  Require(split(Quoted(arguments)) == arguments, "quoted arguments are split");
  std::vector<std::wstring> any;
  for (CValues values(input); !values.AtEnd();) any.push_back(values.Text());
  std::erase(any, L"");
  Require(split(Quoted(any)) == any, "any arguments can be quoted");
  qlm::ParseOptions(arguments, test::CRcTexts());
}

void TestNames(std::string_view input) {
  CValues values(input);
  const std::wstring pattern = values.Text();
  const std::wstring id = values.Text();
  const std::wstring folder = values.Text();
  const std::string_view time = values.Bytes();
  uint64_t ticks = 0;
  for (const char c : time) ticks = ticks * 251 + static_cast<unsigned char>(c);
  CheckPattern(pattern, id, {ticks >> 1});
  CheckFaults(folder, pattern);
  CheckFaults(folder, id);
}

}  // namespace fuzz
