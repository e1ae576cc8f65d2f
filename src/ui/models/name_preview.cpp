#include "ui/models/name_preview.h"

#include <string_view>

#include "document/name_pattern.h"
#include "platform/message_texts.h"
#include "support/name_faults.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr CNameToken kTokens[] = {
    {L"<ID>", IDS_TOKEN_ID},       {L"<Y>", IDS_TOKEN_YEAR, true}, {L"<Y2>", IDS_TOKEN_YEAR_2},
    {L"<M>", IDS_TOKEN_MONTH},     {L"<M1>", IDS_TOKEN_MONTH_1},   {L"<D>", IDS_TOKEN_DAY},
    {L"<D1>", IDS_TOKEN_DAY_1},    {L"<h>", IDS_TOKEN_HOUR, true}, {L"<h1>", IDS_TOKEN_HOUR_1},
    {L"<m>", IDS_TOKEN_MINUTE},    {L"<m1>", IDS_TOKEN_MINUTE_1},  {L"<s>", IDS_TOKEN_SECOND},
    {L"<s1>", IDS_TOKEN_SECOND_1},
};

}  // namespace

std::span<const CNameToken> NameTokens() {
  return kTokens;
}

std::wstring SampleTaskId(const CTasks& tasks, const CRows& rows, const my::IMessageTexts& texts) {
  const size_t row = rows.empty() ? 0 : rows.front();
  return row < tasks.size() ? tasks[row]->id : texts.Text(IDS_SAMPLE_TASK_ID);
}

std::wstring NamePreview(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                         const my::IClock& clock, const my::IMessageTexts& texts) {
  if (dst.pattern.empty()) return texts.Text(IDS_PATTERN_EMPTY);
  std::wstring name = ExpandName(dst, taskId, time, clock);
  if (my::HasBadCharacter(name)) {
    const my::CMsgArg bad = name;
    return my::MakeText(texts, IDS_NAME_BAD_CHARACTER, {&bad, 1});
  }
  const auto fault = my::FindNameFault(my::Trim(dst.folder, my::kBlanks), my::Trim(name, my::kBlanks));
  if (!fault) return name;
  const my::CMsgArg at = fault->name;
  return my::MakeText(texts, fault->id, {&at, 1});
}

}  // namespace qlm
