#include "support/enum_names.h"

#include <algorithm>

namespace my {

std::optional<std::wstring_view> EnumName(const CEnumTable& table, uint32_t value) {
  if (value >= table.names.size()) return {};
  return table.names[value];
}

std::optional<uint32_t> EnumValue(const CEnumTable& table, std::wstring_view name) {
  const auto found = std::find(table.names.begin(), table.names.end(), name);
  if (found == table.names.end()) return {};
  return static_cast<uint32_t>(found - table.names.begin());
}

uint32_t UnknownFlags(const CEnumTable& table, uint32_t flags) {
  return flags & ~((1u << table.names.size()) - 1);
}

std::wstring FlagsText(const CEnumTable& table, uint32_t flags) {
  std::wstring text;
  for (size_t bit = 0; bit < table.names.size(); ++bit) {
    if ((flags >> bit & 1) == 0) continue;
    if (!text.empty()) text += L'|';
    text += table.names[bit];
  }
  return text;
}

std::optional<uint32_t> ParseFlags(const CEnumTable& table, std::wstring_view text) {
  uint32_t flags = 0;
  while (!text.empty()) {
    const size_t bar = text.find(L'|');
    const auto bit = EnumValue(table, text.substr(0, bar));
    if (!bit) return {};
    flags |= 1u << *bit;
    if (bar == text.npos) break;
    text.remove_prefix(bar + 1);
    if (text.empty()) return {};
  }
  return flags;
}

}  // namespace my
