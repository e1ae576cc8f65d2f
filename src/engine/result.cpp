#include "engine/result.h"

#include "platform/message_texts.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {

// The text of an error stands as far behind the text of its phase as these two.
static_assert(IDS_ERR_LISTING - IDS_PHASE_LISTING == 6 && IDS_ERR_ARCHIVING - IDS_PHASE_ARCHIVING == 6);

std::wstring ResultText(const my::IMessageTexts& texts, const CResult& result) {
  if (!result.error) return my::OneLine(texts.Text(result.message));
  const uint32_t id = result.message + (IDS_ERR_LISTING - IDS_PHASE_LISTING);
  const my::CMsgArg cause = result.error.message;
  return my::OneLine(my::MakeText(texts, id, {&cause, 1}));
}

std::wstring UnlistedText(const my::IMessageTexts& texts, const CTask& task,
                          const CUnlistedFolder& unlisted) {
  const my::CMsgArg error = unlisted.error;
  return my::JoinPath(task.path, unlisted.folder) + L" (" + my::MakeText(texts, 0, {&error, 1}) + L")";
}

}  // namespace qlm
