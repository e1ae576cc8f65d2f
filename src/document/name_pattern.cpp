#include "document/name_pattern.h"

#include <array>

#include "platform/clock.h"
#include "support/regex.h"
#include "support/strings.h"

namespace qlm {
namespace {

constexpr size_t kTokens = 13;

// In the order of replacement.
const std::array<my::CRegex, kTokens>& TokenExpressions() {
  static const std::array<my::CRegex, kTokens> expressions = {
      my::CRegex(L"<[iI][dD]>"), my::CRegex(L"<Y2>"), my::CRegex(L"<Y4{0,1}>"), my::CRegex(L"<M1>"),
      my::CRegex(L"<M2{0,1}>"),  my::CRegex(L"<D1>"), my::CRegex(L"<D2{0,1}>"), my::CRegex(L"<h1>"),
      my::CRegex(L"<h2{0,1}>"),  my::CRegex(L"<m1>"), my::CRegex(L"<m2{0,1}>"), my::CRegex(L"<s1>"),
      my::CRegex(L"<s2{0,1}>")};
  return expressions;
}

std::wstring Digits(int number, size_t width) {
  return my::PaddedNumber(static_cast<uint64_t>(number), width);
}

// Escapes the text for use as a replacement format.
std::wstring AsFormat(const std::wstring& text) {
  std::wstring format;
  for (const wchar_t c : text) {
    if (c == L'\\' || c == L'$') format += L'\\';
    format += c;
  }
  return format;
}

struct CExtensionSpan {
  size_t dot = std::wstring::npos;  // npos: no extension
  std::wstring_view text;
};

CExtensionSpan FindExtension(const std::wstring& name) {
  const size_t dot = name.rfind(L'.');
  if (dot == name.npos || name.find_first_of(L"/\\", dot) != name.npos) return {};
  return {dot, std::wstring_view(name).substr(dot + 1)};
}

}  // namespace

std::wstring ExpandName(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                        const my::IClock& clock) {
  const my::CCalendar at = clock.LocalCalendar(time);
  const std::array<std::wstring, kTokens> formats = {
      AsFormat(taskId),    Digits(at.year % 100, 2), Digits(at.year, 4),   Digits(at.month, 1),
      Digits(at.month, 2), Digits(at.day, 1),        Digits(at.day, 2),    Digits(at.hour, 1),
      Digits(at.hour, 2),  Digits(at.minute, 1),     Digits(at.minute, 2), Digits(at.second, 1),
      Digits(at.second, 2)};
  std::wstring name = dst.pattern;
  for (size_t i = 0; i < kTokens; ++i) name = TokenExpressions()[i].Replace(name, formats[i]);
  return name;
}

bool AdjustExtension(DstType type, std::wstring& name) {
  if (HasFittingExtension(type, name)) return false;
  const size_t dot = FindExtension(name).dot;
  if (dot != name.npos) name.erase(dot);
  if (IsZip(type)) name += L".zip";
  return true;
}

bool FitPattern(DstType type, std::wstring& pattern) {
  // A run trims spaces at the end of the name, but not before an extension.
  std::wstring fitted(my::TrimEnd(pattern, my::kBlanks));
  if (fitted.empty() || !AdjustExtension(type, fitted)) return false;
  pattern = std::move(fitted);
  return true;
}

CNameTokens TokensOf(const std::wstring& pattern) {
  const auto found = [&pattern](size_t token) { return TokenExpressions()[token].Found(pattern); };
  const auto either = [&found](size_t token) { return found(token) || found(token + 1); };
  return {found(0), either(1), either(3), either(5), either(7), either(9), either(11)};
}

bool HasFittingExtension(DstType type, const std::wstring& name) {
  const CExtensionSpan extension = FindExtension(name);
  if (IsZip(type)) return my::EqualNoCase(extension.text, L"zip");
  return extension.dot == name.npos;
}

}  // namespace qlm
