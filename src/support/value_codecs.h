// Conversion of values to and from the texts in files. Parse functions return nullopt for a malformed text;
// the caller knows the fitting message.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace my {

using CVersion = std::array<uint32_t, 4>;  // comparable

struct CColor {
  uint8_t red = 0;
  uint8_t green = 0;
  uint8_t blue = 0;

  friend bool operator==(const CColor&, const CColor&) = default;
};

std::wstring BoolText(bool value);
std::optional<bool> ParseBool(std::wstring_view text);  // exactly "true" or "false"

std::optional<int32_t> ParseInt(std::wstring_view text);
std::optional<uint32_t> ParseDword(std::wstring_view text);

std::wstring VersionText(const CVersion& version);
std::optional<CVersion> ParseVersion(std::wstring_view text);

// "RRGGBB" in upper-case hexadecimal digits.
std::wstring ColorText(CColor color);

// Six digits are red, green and blue; two digits are a grey level; one digit is a grey level of 0 to 15, not
// scaled.
std::optional<CColor> ParseColor(std::wstring_view text);

std::wstring HexText(uint32_t value);

// Upper-case hexadecimal digits, two per byte; ParseBytes accepts both cases.
std::wstring BytesText(std::string_view bytes);
std::optional<std::string> ParseBytes(std::wstring_view text);

}  // namespace my
