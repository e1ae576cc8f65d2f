#include "replace/replace_rule.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <utility>

#include "support/exception.h"

namespace qlm {
namespace {

template <class T>
struct CColumn {
  ReplaceCol flag;
  std::wstring T::*field;
};

constexpr CColumn<CTask> kTaskColumns[] = {
    {kReplaceTaskId, &CTask::id}, {kReplaceTaskPath, &CTask::path}, {kReplaceTaskFilter, &CTask::filterPath}};
constexpr CColumn<CDst> kDstColumns[] = {{kReplaceDstFolder, &CDst::folder},
                                         {kReplaceDstPattern, &CDst::pattern}};

bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

// Returns whether the text starts with a number in braces.
bool StartsWithBracedNumber(std::wstring_view text) {
  if (text.size() < 3 || text[0] != L'{' || !IsDigit(text[1])) return false;
  size_t end = 1;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end < text.size() && text[end] == L'}';
}

// Converts a reference that starts with "$" and `rest` to the library's format. The library reads "$12" as
// one group and "$+{" as the start of a group name, where the empty "\\E" ends the reference.
std::wstring LibraryReference(std::wstring_view rest) {
  const wchar_t c = rest.front();
  if (IsDigit(c)) return {L'$', L'{', c, L'}'};
  return rest.starts_with(L"+{") ? L"$+\\E" : std::wstring{L'$', c};
}

// Converts a format to the library's format, which has more escapes: "\t" would be a tab, not the folder t,
// and "$MATCH" a reference.
std::wstring LibraryFormat(std::wstring_view format) {
  constexpr std::wstring_view kReferences = L"&`'+$0123456789";
  std::wstring result;
  for (size_t i = 0; i < format.size(); ++i) {
    const std::wstring_view rest = format.substr(i + 1);
    if (format[i] == L'\\') {
      result += L"\\\\";
    } else if (format[i] != L'$' || StartsWithBracedNumber(rest)) {
      result += format[i];
    } else if (rest.empty() || kReferences.find(rest.front()) == rest.npos) {
      result += L"$$";
    } else {
      result += LibraryReference(rest);
      ++i;
    }
  }
  return result;
}

std::wstring ReplaceAll(const std::wstring& text, const std::wstring& src, const std::wstring& dst) {
  std::wstring result;
  size_t from = 0;
  for (size_t at = text.find(src); at != text.npos; at = text.find(src, from)) {
    result.append(text, from, at - from).append(dst);
    from = at + src.size();
  }
  return result.append(text, from);
}

template <class T, size_t N>
boost::shared_ptr<T> ReplacedCopy(const CReplaceRule& rule, const T& item, const CColumn<T> (&columns)[N]) {
  auto copy = boost::make_shared<T>(item);
  copy->replaceRule = nullptr;
  bool changed = false;
  for (const CColumn<T>& column : columns) {
    std::wstring& value = *copy.*column.field;
    value = rule.Value(column.flag, value);
    changed = changed || value != item.*column.field;
  }
  return changed ? copy : nullptr;
}

template <class T, size_t N>
std::wstring ShownField(const T& item, ReplaceCol column, const CColumn<T> (&columns)[N]) {
  const auto* found =
      std::find_if(columns, columns + N, [column](const CColumn<T>& one) { return one.flag == column; });
  const std::wstring& value = item.*found->field;
  if (!item.replaceRule) return value;
  try {
    return item.replaceRule->Value(column, value);
  } catch (const my::CException&) {
    return value;
  }
}

}  // namespace

CReplaceRule::CReplaceRule(CReplaceOptions options) : m_options(std::move(options)) {
  if (!m_options.regex || m_options.src.empty()) return;
  m_regex = my::CRegex(m_options.src);
  m_format = LibraryFormat(m_options.dst);
}

std::wstring CReplaceRule::Value(ReplaceCol column, const std::wstring& value) const {
  if ((m_options.col & column) == 0 || m_options.src.empty()) return value;
  return m_regex ? m_regex->Replace(value, m_format) : ReplaceAll(value, m_options.src, m_options.dst);
}

CTaskPtr Replaced(const CReplaceRule& rule, const CTask& task) {
  return ReplacedCopy(rule, task, kTaskColumns);
}

CDstPtr Replaced(const CReplaceRule& rule, const CDst& dst) {
  return ReplacedCopy(rule, dst, kDstColumns);
}

std::wstring ShownValue(const CTask& task, ReplaceCol column) {
  return ShownField(task, column, kTaskColumns);
}

std::wstring ShownValue(const CDst& dst, ReplaceCol column) {
  return ShownField(dst, column, kDstColumns);
}

}  // namespace qlm
