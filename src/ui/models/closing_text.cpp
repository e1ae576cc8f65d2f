#include "ui/models/closing_text.h"

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

std::wstring ClosingText(const my::IMessageTexts& texts, const CResults& rows) {
  if (rows.empty()) return texts.Text(IDS_WAIT_RUN);
  const CResult& row = *rows.back();
  // A running archiver is waited for; any other job stops before its next file.
  const bool archive = !row.error && row.phase == Phase::Archiving;
  const my::CMsgArg id = row.task->id;
  return my::MakeText(texts, archive ? IDS_WAIT_ARCHIVE : IDS_WAIT_JOB, {&id, 1});
}

}  // namespace qlm
