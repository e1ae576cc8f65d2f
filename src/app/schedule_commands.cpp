#include "app/schedule_commands.h"

#include <algorithm>

#include "app/messenger.h"
#include "app/windows.h"
#include "document/document.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

std::wstring MissingFiles(const CAppContext& context) {
  std::wstring missing;
  for (const CDocumentSchedule& schedule : MakeSchedules(context.ports).All()) {
    const CScheduledRun& run = schedule.read.run;
    if (schedule.fault == ScheduleFault::NoDocument) missing += run.documentPath + L"\n";
    if (schedule.fault == ScheduleFault::NoRunner) missing += run.runnerPath + L"\n";
  }
  return missing;
}

}  // namespace

void CCommandSchedules::Execute(bool run) {
  RefuseDuringReplace(m_context);
  if (m_context.document.Path().empty()) throw my::CException(IDS_SCHEDULE_SAVE_FIRST);
  if (run) m_context.dialogs.ShowSchedules(false);
}

CSchedules MakeSchedules(const CAppPorts& ports) {
  return {{ports.scheduler, ports.dom, ports.engine.files, ports.engine.texts},
          my::JoinPath(ports.folders.ProgramFolder(), L"QuillmoorRun.exe")};
}

void OfferToMendSchedules(const CAppContext& context) {
  std::wstring missing;
  const my::CSimpleErr error =
      my::TrapError(context.ports.engine.texts, [&] { missing = MissingFiles(context); });
  if (error || missing.empty()) return;
  if (context.messenger.Ask(IDS_SCHEDULE_ASK_MEND, {missing})) context.dialogs.ShowSchedules(true);
}

std::wstring ScheduleWarning(const CAppContext& context) {
  const bool asks = context.settings.archive.passwordType != PasswordType::SAVE;
  const auto needsPassword = [](const CTaskPtr& task) { return AnyDst({task}, NeedsPassword); };
  if (!asks || !std::ranges::any_of(context.document.Tasks(), needsPassword)) return {};
  const my::CMsgArg warning = my::CTextId{IDS_SCHEDULE_PASSWORD};
  return my::MakeText(context.ports.engine.texts, IDS_WARNING, {&warning, 1});
}

}  // namespace qlm
