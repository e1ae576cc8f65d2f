#include "run/warnings.h"

#include "engine/targets.h"
#include "platform/console.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

void Warn(const CRunnerPorts& ports, const std::wstring& text) {
  const my::CMsgArg warning = text;
  ports.console.Write(my::IConsole::Stream::Errors,
                      my::MakeText(ports.engine.texts, IDS_WARNING, {&warning, 1}) + L"\n");
}

void WarnOfUnlisted(const CRunnerPorts& ports, const CTask& task, const CTargets& targets) {
  for (const CUnlistedFolder& unlisted : targets.Unlisted()) {
    const my::CMsgArg what = UnlistedText(ports.engine.texts, task, unlisted);
    Warn(ports, my::MakeText(ports.engine.texts, IDS_FOLDERS_NOT_LISTED, {&what, 1}));
  }
}

}  // namespace qlm
