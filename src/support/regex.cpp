#include "support/regex.h"

#include <algorithm>
#include <boost/regex.hpp>
#include <stdexcept>

#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

// Returns the id of the text for an error code; 0 if it has none.
uint32_t ReasonId(boost::regex_constants::error_type code) {
  namespace codes = boost::regex_constants;
  switch (code) {
    case codes::error_brack:
    case codes::error_paren:
    case codes::error_right_paren: return IDS_REGEX_BRACKETS;
    case codes::error_brace:
    case codes::error_badbrace: return IDS_REGEX_BRACES;
    case codes::error_escape: return IDS_REGEX_ESCAPE;
    case codes::error_backref: return IDS_REGEX_BACK_REFERENCE;
    case codes::error_badrepeat: return IDS_REGEX_REPEAT;
    case codes::error_collate:
    case codes::error_ctype:
    case codes::error_range: return IDS_REGEX_CLASS;
    case codes::error_bad_pattern:
    case codes::error_perl_extension: return IDS_REGEX_EXTENSION;
    default: return 0;
  }
}

// Returns up to 10 characters on each side of a position, which may be inside a surrogate pair.
std::wstring Around(std::wstring_view text, size_t position) {
  constexpr size_t kReach = 10;
  std::wstring fragment;
  for (size_t at = 0; at < text.size();) {
    const size_t start = at;
    const char32_t c = NextCodePoint(text, at);
    if (at + kReach > position && start < position + kReach) AppendCodePoint(fragment, c);
  }
  return fragment;
}

// Converts an exception of the library, whose own message is in English and truncates the expression's
// characters to bytes.
CException Failure(const boost::regex_error& failure, std::wstring_view expression) {
  namespace codes = boost::regex_constants;
  const auto code = failure.code();
  if (code == codes::error_space || code == codes::error_size || code == codes::error_complexity ||
      code == codes::error_stack) {
    return CException(IDS_REGEX_TOO_COMPLEX);
  }
  const uint32_t reason = ReasonId(code);
  if (reason == 0) return CException(IDS_REGEX_INVALID);
  const auto position = static_cast<size_t>(std::max<std::ptrdiff_t>(failure.position(), 0));
  return CException(IDS_REGEX_ERROR, {CTextId{reason, {Around(expression, position)}}});
}

boost::wregex Compile(std::wstring_view expression) {
  try {
    return boost::wregex(expression.data(), expression.data() + expression.size(), boost::regex::perl);
  } catch (const boost::regex_error& failure) {
    throw Failure(failure, expression);
  }
}

// Runs a search. The only exception of the library is that it has given up.
template <class Work>
auto Bounded(Work work) {
  try {
    return work();
  } catch (const std::runtime_error&) {
    throw CException(IDS_REGEX_TOO_COMPLEX);
  }
}

}  // namespace

struct CRegexMatch::Impl {
  boost::match_results<const wchar_t*> results;
};

struct CRegex::Impl {
  boost::wregex expression;
};

CRegexMatch::CRegexMatch() : m_impl(std::make_unique<Impl>()) {}
CRegexMatch::~CRegexMatch() = default;
CRegexMatch::CRegexMatch(CRegexMatch&&) noexcept = default;
CRegexMatch& CRegexMatch::operator=(CRegexMatch&&) noexcept = default;

std::wstring_view CRegexMatch::Group(int index) const {
  const auto& group = m_impl->results[index];
  if (!group.matched) return {};
  return {group.first, static_cast<size_t>(group.length())};
}

CRegex::CRegex(std::wstring_view expression) : m_impl(std::make_shared<Impl>(Impl{Compile(expression)})) {}

bool CRegex::Search(std::wstring_view text, CRegexMatch& match) const {
  return Bounded([&] {
    return boost::regex_search(text.data(), text.data() + text.size(), match.m_impl->results,
                               m_impl->expression);
  });
}

bool CRegex::Found(std::wstring_view text) const {
  CRegexMatch match;
  return Search(text, match);
}

std::wstring CRegex::Replace(const std::wstring& text, const std::wstring& format) const {
  return Bounded([&] { return boost::regex_replace(text, m_impl->expression, format, boost::format_perl); });
}

}  // namespace my
