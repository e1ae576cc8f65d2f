#include "ui/models/cells.h"

#include <utility>

#include "document/filter.h"
#include "engine/result.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr my::CColor kIncompleteColor{0x8A, 0x5A, 0x00};

}  // namespace

my::CListColumn CTableModel::Column(size_t column) const {
  const CColumnSpec& spec = m_columns[column];
  return {m_texts.Text(spec.titleId), spec.width, spec.align};
}

ResultState StateOf(const CResult& result) {
  if (result.error) return ResultState::FAILED;
  const bool created = result.phase == Phase::CREATED;
  if (!created && result.phase != Phase::SKIPPED) return ResultState::RUNNING;
  if (!result.targets->Unlisted().empty()) return ResultState::INCOMPLETE;
  return created ? ResultState::CREATED : ResultState::NOT_UPDATED;
}

std::wstring RowText(const my::IMessageTexts& texts, const CResult& result) {
  std::wstring text = ResultText(texts, result);
  const auto& unlisted = result.targets->Unlisted();
  if (unlisted.empty()) return text;
  const my::CMsgArg parts[] = {std::move(text), GroupedText(unlisted.size()),
                               UnlistedText(texts, *result.task, unlisted.front())};
  return my::OneLine(my::MakeText(texts, IDS_UNLISTED_REMARK, parts));
}

my::CListLook StateLook(const CUISetting& setting, ResultState state) {
  if (state == ResultState::INCOMPLETE) return {kIncompleteColor, false};
  return {setting.stateColors[static_cast<size_t>(state)], false};
}

std::wstring LocalTimeText(const my::IClock& clock, my::CFileTime time) try {
  if (!time) return {};
  return my::CalendarText(clock.LocalCalendar(time), L'/', L' ');
} catch (const my::CException&) {
  return {};
}

std::wstring GroupedText(uint64_t number) {
  std::wstring digits = std::to_wstring(number);
  for (size_t end = digits.size(); end > 3; end -= 3) digits.insert(end - 3, 1, L',');
  return digits;
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
