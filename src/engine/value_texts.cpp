#include "engine/value_texts.h"

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

std::wstring SizeText(const my::IMessageTexts& texts, uint64_t bytes) {
  constexpr const wchar_t* kUnits[] = {L" KB", L" MB", L" GB", L" TB", L" PB", L" EB"};
  constexpr uint64_t kStep = 1024;
  if (bytes < kStep) {
    const my::CMsgArg number = std::to_wstring(bytes);
    return my::MakeText(texts, IDS_SIZE_BYTES, {&number, 1});
  }
  const wchar_t* const* unit = kUnits;
  for (; bytes >= kStep * kStep; bytes /= kStep) ++unit;
  const uint64_t tenths = bytes * 10 / kStep;
  std::wstring text = std::to_wstring(tenths / 10);
  if (tenths < 1000) text += L"." + std::to_wstring(tenths % 10);
  return text + *unit;
}

}  // namespace qlm
