#include "support/value_codecs.h"

#include <charconv>

namespace my {
namespace {

// Parses the whole text as one number. Returns nullopt for extra characters or a number out of range.
template <class T>
std::optional<T> ParseNumber(std::wstring_view text, int base) {
  std::string digits;
  for (const wchar_t c : text) {
    if (c > 0x7E) return {};
    digits += static_cast<char>(c);
  }
  T value{};
  const char* const last = digits.data() + digits.size();
  const auto [end, error] = std::from_chars(digits.data(), last, value, base);
  if (error != std::errc() || end != last) return {};
  return value;
}

void AppendHex(std::wstring& text, uint8_t byte) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  text += kDigits[byte >> 4];
  text += kDigits[byte & 0xF];
}

}  // namespace

std::wstring BoolText(bool value) {
  return value ? L"true" : L"false";
}

std::optional<bool> ParseBool(std::wstring_view text) {
  if (text == L"true") return true;
  if (text == L"false") return false;
  return {};
}

std::optional<int32_t> ParseInt(std::wstring_view text) {
  return ParseNumber<int32_t>(text, 10);
}

std::optional<uint32_t> ParseDword(std::wstring_view text) {
  return ParseNumber<uint32_t>(text, 10);
}

std::wstring VersionText(const CVersion& version) {
  std::wstring text;
  for (const uint32_t number : version) {
    if (!text.empty()) text += L'.';
    text += std::to_wstring(number);
  }
  return text;
}

std::optional<CVersion> ParseVersion(std::wstring_view text) {
  CVersion version{};
  for (size_t i = 0; i < version.size(); ++i) {
    const bool last = i + 1 == version.size();
    const size_t dot = text.find(L'.');
    if (last != (dot == text.npos)) return {};
    const auto number = ParseDword(text.substr(0, dot));
    if (!number) return {};
    version[i] = *number;
    if (!last) text.remove_prefix(dot + 1);
  }
  return version;
}

std::wstring ColorText(CColor color) {
  std::wstring text;
  for (const uint8_t channel : {color.red, color.green, color.blue}) AppendHex(text, channel);
  return text;
}

std::optional<CColor> ParseColor(std::wstring_view text) {
  if (text.find_first_not_of(L"0123456789ABCDEFabcdef") != text.npos) return {};
  if (text.size() != 1 && text.size() != 2 && text.size() != 6) return {};
  const uint32_t value = *ParseNumber<uint32_t>(text, 16);
  const auto channel = [value](int shift) { return static_cast<uint8_t>(value >> shift); };
  if (text.size() < 6) return CColor{channel(0), channel(0), channel(0)};
  return CColor{channel(16), channel(8), channel(0)};
}

std::wstring HexText(uint32_t value) {
  std::wstring text = L"0x";
  for (const int shift : {24, 16, 8, 0}) AppendHex(text, static_cast<uint8_t>(value >> shift));
  return text;
}

std::wstring BytesText(std::string_view bytes) {
  std::wstring text;
  for (const char byte : bytes) AppendHex(text, static_cast<uint8_t>(byte));
  return text;
}

std::optional<std::string> ParseBytes(std::wstring_view text) {
  if (text.size() % 2 != 0) return {};
  std::string bytes;
  for (; !text.empty(); text.remove_prefix(2)) {
    const auto byte = ParseNumber<uint8_t>(text.substr(0, 2), 16);
    if (!byte) return {};
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

}  // namespace my
