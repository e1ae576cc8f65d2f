// Names of enumeration values and flags. Files store the names, never the numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace my {

// The names of an enumeration in the order of its values from 0, or of flags from bit 0.
struct CEnumTable {
  std::wstring_view enumName;
  std::span<const std::wstring_view> names;
};

// The texts of an enumeration: consecutive ids in the order of its values from 0.
template <class TEnum>
struct CEnumTexts {
  uint32_t first;
  uint32_t last;

  constexpr uint32_t operator[](TEnum value) const { return first + static_cast<uint32_t>(value); }
  constexpr size_t size() const { return last - first + 1; }
};

// Returns nullopt for a value outside the table.
std::optional<std::wstring_view> EnumName(const CEnumTable& table, uint32_t value);

// Returns nullopt for an unknown name. Case-sensitive.
std::optional<uint32_t> EnumValue(const CEnumTable& table, std::wstring_view name);

// Returns the bits without a name in the table.
uint32_t UnknownFlags(const CEnumTable& table, uint32_t flags);

// Returns the names of the set bits from bit 0, joined with "|".
std::wstring FlagsText(const CEnumTable& table, uint32_t flags);

// Parses the result of FlagsText. Returns nullopt for an unknown name. An empty text means no flags.
std::optional<uint32_t> ParseFlags(const CEnumTable& table, std::wstring_view text);

}  // namespace my
