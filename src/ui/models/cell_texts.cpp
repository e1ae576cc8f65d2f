#include "ui/models/cell_texts.h"

#include <array>
#include <cstdio>

#include "document/filter.h"
#include "engine/value_texts.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

std::wstring GroupedText(uint64_t number) {
  std::wstring digits = std::to_wstring(number);
  for (size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, 1, L',');
  return digits;
}

std::wstring SpeedText(const my::IMessageTexts& texts, uint64_t bytes, uint64_t ms) {
  if (ms == 0) return L"-";
  const my::CMsgArg size = SizeText(texts, BytesPerSecond(bytes, ms));
  return my::MakeText(texts, IDS_SPEED, {&size, 1});
}

std::wstring AttributesText(uint32_t attributes) {
  std::wstring letters;
  for (const auto& [bit, letter] : kAttributeLetters) {
    if ((attributes & bit) != 0) letters += letter;
  }
  return letters;
}

std::wstring FilterItemText(const my::IMessageTexts& texts, const CFilterItem* item) {
  if (!item) return texts.Text(IDS_FILTER_NO_MATCH);
  return std::to_wstring(item->lineIndex + 1) + L": " + item->line;
}

}  // namespace qlm
