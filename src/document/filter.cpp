#include "document/filter.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "document/text_file.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

bool IsSkipped(const std::wstring& line) {
  static const my::CRegex blank(L"^[ \\t]*$");
  static const my::CRegex comment(L"^#");
  return blank.Found(line) || comment.Found(line);
}

// Returns the expression after the sign: the text in double quotes, or the rest of the line including
// trailing spaces.
std::wstring_view RulePart(const std::wstring& line) {
  static const my::CRegex quoted(L"[^ \\t][ \\t]+\"(.*)\"[ \\t]*$");
  static const my::CRegex plain(L"[^ \\t][ \\t]+([^ \\t].*)[ \\t]*$");
  my::CRegexMatch match;
  if (!quoted.Search(line, match) && !plain.Search(line, match)) throw my::CException(IDS_FILTER_BAD_FORM);
  return match.Group(1);
}

// Replaces "/" with an escaped backslash, the separator of paths.
std::wstring WithBackslashes(std::wstring_view rule) {
  std::wstring expression;
  for (const wchar_t c : rule) {
    if (c == L'/') {
      expression += L"\\\\";
    } else {
      expression += c;
    }
  }
  return expression;
}

// Parses the line of the item and returns the text of its expression.
std::wstring ParseRule(CFilterItem& item) {
  const wchar_t sign = item.line.front();
  if (sign != L'+' && sign != L'-') {
    throw my::CException(IDS_FILTER_BAD_SIGN, {std::wstring(my::FirstCharacter(item.line))});
  }
  item.pattern = RulePart(item.line);
  std::wstring expression = WithBackslashes(item.pattern);
  if (sign == L'-') item.flags = FilterFlags::EXCLUDE;
  item.expression = my::CRegex(expression);
  return expression;
}

}  // namespace

std::wstring ExcludeLine(std::wstring_view relativePath) {
  constexpr std::wstring_view kSpecial = L".[]{}()*+?^$|";
  std::wstring line = L"- \"^";
  for (const wchar_t c : relativePath) {
    if (kSpecial.find(c) != kSpecial.npos) line += L'\\';
    line += c == L'\\' ? L'/' : c;
  }
  return line + L"$\"";
}

void CFilter::Load(my::IFileSystem& files, const my::IAnsiCodec& ansi, const my::IMessageTexts& texts,
                   const std::wstring& path) {
  Parse(ReadTextLines(files, ansi, path), texts);
}

void CFilter::Parse(const std::vector<std::wstring>& lines, const my::IMessageTexts& texts) {
  m_items.clear();
  m_prefilters.clear();
  for (size_t index = 0; index < lines.size(); ++index) {
    if (IsSkipped(lines[index])) continue;
    auto item = boost::make_shared<CFilterItem>();
    item->lineIndex = static_cast<uint32_t>(index);
    item->line = lines[index];
    std::wstring expression;
    item->error = my::TrapError(texts, [&] { expression = ParseRule(*item); });
    m_prefilters.emplace_back(expression);
    m_items.push_back(std::move(item));
  }
}

const CFilterItem* CFilter::FirstError() const {
  const auto found = std::find_if(m_items.begin(), m_items.end(),
                                  [](const CFilterItemPtr& item) { return static_cast<bool>(item->error); });
  return found == m_items.end() ? nullptr : found->get();
}

const CFilterItem* CFilter::Find(std::wstring_view relativePath, my::CRegexMatch& scratch) const {
  using Verdict = my::CRegexPrefilter::Verdict;
  const my::CPrefilterText path(relativePath);
  for (size_t i = 0; i < m_items.size(); ++i) {
    const Verdict verdict = m_prefilters[i].Test(path);
    if (verdict == Verdict::NoMatch) continue;
    const CFilterItem& item = *m_items[i];
    if (!item.expression) continue;
    if (verdict == Verdict::Match || item.expression->Search(relativePath, scratch)) return &item;
  }
  return nullptr;
}

}  // namespace qlm
