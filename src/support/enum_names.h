// Enumerations and sets of flags are written to files by name, never by number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace my {

// The names of an enumeration in the order of its values, from 0 on, or of a set of flags from bit 0 on.
struct CEnumTable {
  std::wstring_view enumName;
  std::span<const std::wstring_view> names;
};

// The texts of an enumeration: consecutive ids in the order of its values, from 0 on.
template <class TEnum>
struct CEnumTexts {
  uint32_t first;
  uint32_t last;

  constexpr uint32_t operator[](TEnum value) const { return first + static_cast<uint32_t>(value); }
  constexpr size_t size() const { return last - first + 1; }
};

// Nothing for a value outside the table.
std::optional<std::wstring_view> EnumName(const CEnumTable& table, uint32_t value);

// Nothing for a name that is not in the table (case matters).
std::optional<uint32_t> EnumValue(const CEnumTable& table, std::wstring_view name);

// The bits that have no name in the table.
uint32_t UnknownFlags(const CEnumTable& table, uint32_t flags);

// The names of the set bits from bit 0 upward, joined with "|".
std::wstring FlagsText(const CEnumTable& table, uint32_t flags);

// The reverse; nothing when a name is unknown. An empty text is no flag.
std::optional<uint32_t> ParseFlags(const CEnumTable& table, std::wstring_view text);

}  // namespace my
