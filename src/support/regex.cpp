#include "support/regex.h"

#include <boost/regex.hpp>

namespace my {

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

CRegex::CRegex(std::wstring_view expression)
    : m_impl(std::make_shared<Impl>(Impl{
          boost::wregex(expression.data(), expression.data() + expression.size(), boost::regex::perl)})) {}

bool CRegex::Search(std::wstring_view text, CRegexMatch& match) const {
  return boost::regex_search(text.data(), text.data() + text.size(), match.m_impl->results,
                             m_impl->expression);
}

bool CRegex::Found(std::wstring_view text) const {
  CRegexMatch match;
  return Search(text, match);
}

std::wstring CRegex::Replace(const std::wstring& text, const std::wstring& format) const {
  return boost::regex_replace(text, m_impl->expression, format, boost::format_perl);
}

}  // namespace my
