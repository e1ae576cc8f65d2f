// The program's values as the texts of its files. A Parse function answers nothing for a text that is none
// of its kind; the caller knows which message that means.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace my {

using CVersion = std::array<uint32_t, 4>;  // compares like a version

struct CColor {
  uint8_t red = 0;
  uint8_t green = 0;
  uint8_t blue = 0;

  friend bool operator==(const CColor&, const CColor&) = default;
};

std::wstring BoolText(bool value);
std::optional<bool> ParseBool(std::wstring_view text);  // "true" or "false" to the letter

std::optional<int32_t> ParseInt(std::wstring_view text);
std::optional<uint32_t> ParseDword(std::wstring_view text);

std::wstring VersionText(const CVersion& version);
std::optional<CVersion> ParseVersion(std::wstring_view text);

// "RRGGBB" in upper-case hexadecimal digits.
std::wstring ColorText(CColor color);

// Six digits are red, green, blue; two are one grey level; one is one grey level of 0 to 15, not scaled.
std::optional<CColor> ParseColor(std::wstring_view text);

std::wstring HexText(uint32_t value);

// Bytes as upper-case hexadecimal digits, two for each; both cases are read.
std::wstring BytesText(std::string_view bytes);
std::optional<std::string> ParseBytes(std::wstring_view text);

}  // namespace my
