#include "run/run_notice.h"

#include "platform/message_texts.h"
#include "run/exit_codes.h"
#include "run/runner.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {

std::optional<CRunNotice> NoticeOf(const my::IMessageTexts& texts, const std::wstring& documentPath,
                                   const CRunOutcome& outcome) {
  const std::wstring name(my::LastComponent(documentPath));
  // Such a run is not in the history.
  if (!outcome.failure.empty())
    return CRunNotice{true, texts.Text(IDS_SCHEDULE_NOT_RUN), name + L"\n" + outcome.failure};
  const my::CMsgArg document = name;
  const std::wstring seeHistory = my::MakeText(texts, IDS_SCHEDULE_SEE_HISTORY, {&document, 1});
  if (outcome.exitCode == kExitErrors)
    return CRunNotice{true, texts.Text(IDS_SCHEDULE_FAILED_RUN), seeHistory};
  if (outcome.lacksFolders) return CRunNotice{false, texts.Text(IDS_SCHEDULE_LACKS_FOLDERS), seeHistory};
  return {};
}

}  // namespace qlm
