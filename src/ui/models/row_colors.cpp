#include "ui/models/row_colors.h"

#include "engine/remedy.h"
#include "engine/result.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

constexpr my::CColor kIncompleteColor{0x8A, 0x5A, 0x00};

}  // namespace

ResultState StateOf(const CResult& result) {
  if (result.error) return ResultState::Failed;
  const bool created = result.phase == Phase::Created;
  if (!created && result.phase != Phase::Skipped) return ResultState::Running;
  if (!result.targets->Unlisted().empty()) return ResultState::Incomplete;
  return created ? ResultState::Created : ResultState::NotUpdated;
}

std::wstring RowText(const my::IMessageTexts& texts, const CResult& result) {
  std::wstring text = ResultText(texts, result);
  const auto& unlisted = result.targets->Unlisted();
  if (unlisted.empty()) return text;
  const my::CMsgArg parts[] = {std::move(text), GroupedText(unlisted.size()),
                               UnlistedText(texts, *result.task, unlisted.front())};
  return my::OneLine(my::MakeText(texts, IDS_UNLISTED_REMARK, parts));
}

std::wstring RowDetail(const my::IMessageTexts& texts, const CResult& result) {
  if (!result.error) return {};
  return RowText(texts, result) + L"\n" + RemedyLine(texts, result.error);
}

my::CListLook StateLook(const CUISetting& setting, ResultState state) {
  if (state == ResultState::Incomplete) return {kIncompleteColor, false};
  return {setting.stateColors[static_cast<size_t>(state)], false};
}

}  // namespace qlm
