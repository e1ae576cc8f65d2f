#include "engine/result.h"

#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {

namespace {

constexpr uint32_t kErrorAfterPhase = 6;  // id of a phase's error text minus id of its text
static_assert(IDS_PHASE_LISTING + kErrorAfterPhase == IDS_ERR_LISTING &&
              IDS_PHASE_ARCHIVING + kErrorAfterPhase == IDS_ERR_ARCHIVING);

}  // namespace

std::wstring FullResultText(const my::IMessageTexts& texts, const CResult& result) {
  const auto phase = static_cast<uint32_t>(result.phase);
  if (!result.error) return texts.Text(phase);
  const my::CMsgArg cause = result.error.message;
  return my::MakeText(texts, phase + kErrorAfterPhase, {&cause, 1});
}

std::wstring ResultText(const my::IMessageTexts& texts, const CResult& result) {
  return my::OneLine(FullResultText(texts, result));
}

}  // namespace qlm
