#include "ui/models/row_colors.h"

#include "engine/remedy.h"
#include "engine/result.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/contrast.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

constexpr my::CColor kIncompleteColor{0x8A, 0x5A, 0x00};

// The band behind an alarm is the same on every ground.
constexpr my::CColor kAlarmBand{0xFF, 0xE3, 0xDA};
constexpr double kAlarmContrast = 7;

// Selections on a dark and on a light ground.
constexpr my::CColor kBrightSelection{0x5C, 0xB8, 0xFF};
constexpr my::CColor kDarkSelection{0x0B, 0x57, 0xB0};
constexpr my::CColor kInactiveSelection{0xD3, 0xD9, 0xE0};
constexpr my::CColor kInactiveFrame{0x6B, 0x74, 0x80};
constexpr double kShapeContrast = 3;  // of shapes that are not text

// Returns the text colour with the higher contrast.
my::CColor TextOn(my::CColor back) {
  constexpr my::CColor kDark{0, 0, 0};
  constexpr my::CColor kLight{0xFF, 0xFF, 0xFF};
  return my::NeedsDark(back) ? kDark : kLight;
}

CRowColors SelectionColors(bool active, double luminance, bool dark) {
  const my::CColor wanted = dark ? kBrightSelection : kDarkSelection;
  const my::CColor shape = active ? wanted : kInactiveFrame;
  const my::CColor visible = my::Readable(shape, luminance, dark, kShapeContrast);
  if (active) return {TextOn(visible), visible, {}};
  return {TextOn(kInactiveSelection), kInactiveSelection, visible};
}

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
  const auto index = static_cast<size_t>(state);
  const bool incomplete = state == ResultState::Incomplete;
  my::CListLook look;
  look.color = incomplete ? kIncompleteColor : setting.stateColors[index];
  look.alarm = state == ResultState::Failed;
  look.icon = static_cast<int>(index);
  return look;
}

CRowColors RowColors(const my::CListLook& look, RowSelection selection, const CRowGround& ground) {
  const bool dark = my::NeedsDark(ground.text);
  if (selection != RowSelection::None)
    return SelectionColors(selection == RowSelection::Active, ground.luminance, dark);
  if (look.alarm) {
    const my::CColor color = look.color.value_or(my::CColor{});
    return {my::Readable(color, my::Luminance(kAlarmBand), false, kAlarmContrast), kAlarmBand, {}};
  }
  const auto own = look.grey ? std::optional(ground.grey) : look.color;
  return {own ? my::Readable(*own, ground.luminance, dark) : ground.text, {}, {}};
}

}  // namespace qlm
