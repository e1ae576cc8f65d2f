#include "app/command_line.h"

#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

// The path is part of the argument, because two arguments are refused.
constexpr std::wstring_view kCheckFilter = L"--check-filter=";

bool IsFilterCheck(std::wstring_view argument) {
  return argument.starts_with(kCheckFilter);
}

}  // namespace

std::vector<std::wstring> CCommandLineParserUtil::Split(std::wstring_view text) {
  std::vector<std::wstring> arguments;
  std::wstring argument;
  wchar_t quote = 0;
  const auto emit = [&] {
    if (!argument.empty()) arguments.push_back(std::move(argument));
    argument.clear();
  };
  for (const wchar_t c : text) {
    const bool isQuote = c == L'"' || c == L'\'';
    if (quote != 0 && c == quote)
      quote = 0;
    else if (quote == 0 && isQuote)
      quote = c;
    else if (quote == 0 && (c == L' ' || c == L'\t'))
      emit();
    else
      argument += c;
  }
  emit();
  return arguments;
}

CSimpleCommandLineParser::CSimpleCommandLineParser(std::wstring_view text)
    : m_arguments(CCommandLineParserUtil::Split(text)) {
  if (!m_arguments.empty()) m_arguments.erase(m_arguments.begin());
}

std::wstring CSingleCommandLineParser::Path() const {
  const auto& arguments = Arguments();
  if (arguments.empty()) return {};
  if (arguments.size() == 1) return IsFilterCheck(arguments.front()) ? std::wstring() : arguments.front();
  std::wstring list;
  for (const std::wstring& argument : arguments) list.append(list.empty() ? L"" : L"\n").append(argument);
  throw my::CException(IDS_TOO_MANY_ARGUMENTS, {std::to_wstring(arguments.size()), list});
}

std::wstring CSingleCommandLineParser::FilterToCheck() const {
  const auto& arguments = Arguments();
  if (arguments.size() != 1 || !IsFilterCheck(arguments.front())) return {};
  return arguments.front().substr(kCheckFilter.size());
}

}  // namespace qlm
