// Functions on wide strings (UTF-16 on Windows, UTF-32 in the host build).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace my {

// Whitespace that is trimmed from paths and names.
inline constexpr std::wstring_view kBlanks = L" \t\r\n";

// Replaces invalid bytes and code units.
inline constexpr char32_t kReplacementChar = 0xFFFD;

// A lone surrogate becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

// Invalid bytes become U+FFFD, one each.
std::wstring WideFromUtf8(std::string_view bytes);

void AppendCodePoint(std::wstring& text, char32_t codePoint);

// Returns the code point at `at` and moves `at` past it. A lone surrogate is returned unchanged.
char32_t NextCodePoint(std::wstring_view text, size_t& at);

// Returns the first character of a text, with both halves of a surrogate pair.
std::wstring_view FirstCharacter(std::wstring_view text);

// Returns the text with each lone surrogate replaced by U+FFFD.
std::wstring WellFormed(std::wstring_view text);

constexpr bool IsHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

// Returns the code point of a surrogate pair.
constexpr char32_t CombineSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

std::wstring_view TrimStart(std::wstring_view text, std::wstring_view chars);
std::wstring_view TrimEnd(std::wstring_view text, std::wstring_view chars);
std::wstring_view Trim(std::wstring_view text, std::wstring_view chars);

// Returns a letter from A to Z in lower case, and any other character unchanged.
constexpr wchar_t LowerAscii(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

// Compares two paths, ignoring the case of ASCII letters only.
bool EqualNoCase(std::wstring_view a, std::wstring_view b);

// Returns whether `text` contains `part`, ignoring the case of ASCII letters only.
bool ContainsNoCase(std::wstring_view text, std::wstring_view part);

// Returns the decimal digits of a number, with leading zeros up to `width` characters.
std::wstring PaddedNumber(uint64_t number, size_t width);

// Returns the text with every run of line breaks replaced by a space.
std::wstring OneLine(std::wstring_view text);

// Returns the texts as lines with CR LF between them. Every line break in them is replaced too; empty lines
// are left out.
std::wstring JoinLines(const std::vector<std::wstring>& texts);

}  // namespace my
