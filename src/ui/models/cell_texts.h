// Texts in the cells of several lists.
#pragma once

#include <cstdint>
#include <string>

namespace my {
class IMessageTexts;
}  // namespace my

namespace qlm {

struct CFilterItem;

std::wstring GroupedText(uint64_t number);  // "1,234,567"

// Returns the bytes that are handled per second; 0 if no time was measured.
constexpr uint64_t BytesPerSecond(uint64_t bytes, uint64_t ms) {
  return ms == 0 ? 0 : static_cast<uint64_t>(static_cast<double>(bytes) * 1000 / static_cast<double>(ms));
}

// Returns "12.3 MB" per second; "-" if no time was measured.
std::wstring SpeedText(const my::IMessageTexts& texts, uint64_t bytes, uint64_t ms);

struct CAttributeLetter {
  uint32_t bit;  // FILE_ATTRIBUTE_ value
  wchar_t letter;
};

inline constexpr CAttributeLetter kAttributeLetters[] = {
    {0x1, L'R'},   {0x2, L'H'},   {0x4, L'S'},   {0x10, L'D'},   {0x20, L'A'},   {0x100, L'T'},
    {0x200, L'P'}, {0x400, L'L'}, {0x800, L'C'}, {0x1000, L'O'}, {0x2000, L'I'}, {0x4000, L'E'}};

// Returns the letters of the set attributes, in the order of the table.
std::wstring AttributesText(uint32_t attributes);

// Returns the deciding line of a filter with its number: "12: - \.bak$". For null the text that no line
// matches.
std::wstring FilterItemText(const my::IMessageTexts& texts, const CFilterItem* item);

}  // namespace qlm
