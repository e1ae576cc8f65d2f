#include "platform/message_texts.h"

#include "platform/system_error_text.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

// Makes the argument well-formed: file names may contain lone surrogates, which consoles and text files
// cannot hold.
std::wstring ArgText(const IMessageTexts& texts, const CMsgArg& arg) {
  if (const auto* text = std::get_if<std::wstring>(&arg)) return WellFormed(*text);
  if (const auto* id = std::get_if<CTextId>(&arg)) {
    return MakeText(texts, id->id, std::vector<CMsgArg>(id->args.begin(), id->args.end()));
  }
  return SystemErrorText(texts, std::get<CSystemError>(arg));
}

}  // namespace

std::wstring MakeText(const IMessageTexts& texts, uint32_t id, std::span<const CMsgArg> args) {
  constexpr std::wstring_view kSlot = L"%s";
  const std::wstring pattern = id == 0 ? std::wstring(kSlot) : texts.Text(id);
  std::wstring text;
  size_t from = 0;
  for (const CMsgArg& arg : args) {
    const size_t slot = pattern.find(kSlot, from);
    if (slot == pattern.npos) break;
    text.append(pattern, from, slot - from).append(ArgText(texts, arg));
    from = slot + kSlot.size();
  }
  return text.append(pattern, from);
}

std::wstring MakeErrorText(const IMessageTexts& texts, const CException& failure) {
  std::wstring text = MakeText(texts, failure.Id(), failure.Args());
  const std::wstring reason = ArgText(texts, failure.Reason());
  if (!reason.empty()) text.insert(0, reason + L"\n\n");
  const std::wstring where = ArgText(texts, failure.Where());
  if (!where.empty() && text.find(where) == text.npos) text.append(L"\n\n").append(where);
  return text;
}

CSimpleErr CurrentError(const IMessageTexts& texts) {
  try {
    throw;
  } catch (const CException& failure) {
    return {failure.Code(), failure.Detail(), MakeErrorText(texts, failure)};
  } catch (const std::exception& failure) {
    const CMsgArg what = WideFromUtf8(failure.what());
    return {IDS_STD_ERROR, 0, MakeText(texts, IDS_STD_ERROR, {&what, 1})};
  }
}

}  // namespace my
