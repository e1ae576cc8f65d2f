#include "support/strings.h"

#include <algorithm>

namespace my {
namespace {

constexpr bool kUtf16 = sizeof(wchar_t) == 2;

void AppendUtf8(std::string& out, char32_t c) {
  if (IsSurrogate(c) || c > 0x10FFFF) c = kReplacementChar;
  if (c < 0x80) {
    out += static_cast<char>(c);
    return;
  }
  const auto tail = [&out, c](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    tail(6);
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    tail(12);
    tail(6);
  }
  tail(0);
}

// Returns the length of the sequence that starts with this byte; 0 if no sequence does.
size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// Decodes one sequence and returns its length; 0 if it is malformed.
size_t DecodeUtf8(std::string_view bytes, char32_t& codePoint) {
  const auto byte = [bytes](size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const size_t length = SequenceLength(byte(0));
  if (length == 0 || length > bytes.size()) return 0;
  codePoint = length == 1 ? byte(0) : byte(0) & (0x7Fu >> length);
  for (size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    codePoint = (codePoint << 6) | (byte(i) & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (codePoint < kSmallest[length] || codePoint > 0x10FFFF || IsSurrogate(codePoint)) return 0;
  return length;
}

}  // namespace

void AppendCodePoint(std::wstring& text, char32_t codePoint) {
  if (kUtf16 && codePoint >= 0x10000) {
    codePoint -= 0x10000;
    text += static_cast<wchar_t>(0xD800 + (codePoint >> 10));
    codePoint = 0xDC00 + (codePoint & 0x3FF);
  }
  text += static_cast<wchar_t>(codePoint);
}

char32_t NextCodePoint(std::wstring_view text, size_t& at) {
  const auto first = static_cast<char32_t>(text[at++]);
  if (!kUtf16 || !IsHighSurrogate(first) || at == text.size()) return first;
  const auto second = static_cast<char32_t>(text[at]);
  if (!IsLowSurrogate(second)) return first;
  ++at;
  return CombineSurrogates(first, second);
}

std::wstring_view FirstCharacter(std::wstring_view text) {
  size_t end = 0;
  if (!text.empty()) NextCodePoint(text, end);
  return text.substr(0, end);
}

std::wstring WellFormed(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    const char32_t c = NextCodePoint(text, at);
    AppendCodePoint(out, IsSurrogate(c) ? kReplacementChar : c);
  }
  return out;
}

std::string Utf8FromWide(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t at = 0; at < text.size();) AppendUtf8(out, NextCodePoint(text, at));
  return out;
}

std::wstring WideFromUtf8(std::string_view bytes) {
  std::wstring out;
  out.reserve(bytes.size());
  while (!bytes.empty()) {
    char32_t codePoint = kReplacementChar;
    const size_t length = DecodeUtf8(bytes, codePoint);
    AppendCodePoint(out, length == 0 ? kReplacementChar : codePoint);
    bytes.remove_prefix(std::max<size_t>(length, 1));
  }
  return out;
}

std::wstring_view TrimStart(std::wstring_view text, std::wstring_view chars) {
  const size_t first = text.find_first_not_of(chars);
  return first == text.npos ? std::wstring_view() : text.substr(first);
}

std::wstring_view TrimEnd(std::wstring_view text, std::wstring_view chars) {
  return text.substr(0, text.find_last_not_of(chars) + 1);
}

std::wstring_view Trim(std::wstring_view text, std::wstring_view chars) {
  return TrimEnd(TrimStart(text, chars), chars);
}

bool EqualNoCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](wchar_t x, wchar_t y) { return LowerAscii(x) == LowerAscii(y); });
}

bool ContainsNoCase(std::wstring_view text, std::wstring_view part) {
  const auto same = [](wchar_t x, wchar_t y) { return LowerAscii(x) == LowerAscii(y); };
  return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

std::wstring PaddedNumber(uint64_t number, size_t width) {
  std::wstring digits = std::to_wstring(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
  return digits;
}

std::wstring OneLine(std::wstring_view text) {
  std::wstring out;
  bool pending = false;
  for (const wchar_t c : text) {
    if (c == L'\r' || c == L'\n') {
      pending = true;
      continue;
    }
    if (pending && !out.empty() && out.back() != L' ' && c != L' ') out += L' ';
    pending = false;
    out += c;
  }
  return out;
}

std::wstring JoinLines(const std::vector<std::wstring>& texts) {
  std::wstring lines;
  for (std::wstring_view text : texts) {
    while (!text.empty()) {
      const std::wstring_view line = text.substr(0, text.find_first_of(L"\r\n"));
      text.remove_prefix(std::min(text.size(), line.size() + 1));
      if (line.empty()) continue;
      if (!lines.empty()) lines += L"\r\n";
      lines += line;
    }
  }
  return lines;
}

}  // namespace my
